# nel_add_module(name SOURCES source...) makes the target `name`, which builds the module lib<name>.so: a
# component, plug-in or core extension in a shared object of its own, to be loaded by that name.
#
# A module shows nothing but its entry symbols (nel_core/ncs/moduleEntry.h), shares the library with the
# application, and has no unique symbols, which would keep it mapped when it is unloaded.
function(nel_add_module name)
    cmake_parse_arguments(PARSE_ARGV 1 module "" "" "SOURCES")
    if(module_UNPARSED_ARGUMENTS OR NOT module_SOURCES)
        message(FATAL_ERROR "Usage: nel_add_module(name SOURCES source...)")
    endif()
    if(name MATCHES "[./]")
        message(FATAL_ERROR "The name of a module holds neither \".\" nor \"/\": ${name}")
    endif()

    add_library(${name} MODULE ${module_SOURCES})
    target_link_libraries(${name} PRIVATE nel::core)
    target_compile_features(${name} PRIVATE cxx_std_17)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(${name} PRIVATE -fno-gnu-unique)
    endif()
    set_target_properties(${name} PROPERTIES
        PREFIX lib
        SUFFIX .so
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()
