# Compiler options shared by the library, its tests, examples and benchmarks.
add_library(nel_options INTERFACE)

target_compile_options(nel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Unique symbols keep a module mapped after its last dlclose.
    target_compile_options(nel_options INTERFACE -fno-gnu-unique)
endif()
if(NEL_WERROR)
    target_compile_options(nel_options INTERFACE -Werror)
endif()
if(NEL_32BIT)
    # SSE gives doubles the same digits as on x86-64.
    target_compile_options(nel_options INTERFACE -m32 -msse2 -mfpmath=sse)
    target_link_options(nel_options INTERFACE -m32)
endif()
# Sanitizers leave symbols to be found at run time, so the check for undefined ones is off with them.
set(NEL_NO_UNDEFINED -Wl,--no-undefined)
if(NEL_SANITIZE)
    set(NEL_NO_UNDEFINED "")
    target_compile_options(nel_options INTERFACE
        -fsanitize=${NEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(nel_options INTERFACE -fsanitize=${NEL_SANITIZE})
endif()
