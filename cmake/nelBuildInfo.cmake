# Hands the facts of the build to the source file that reports them. With SOURCE_DATE_EPOCH set the host is
# left out and the date is that of the epoch, so that two builds of one source are the same.
function(nel_embed_build_info target source)
    string(TIMESTAMP date "%Y-%m-%d" UTC)
    cmake_host_system_information(RESULT host QUERY HOSTNAME)
    if(DEFINED ENV{SOURCE_DATE_EPOCH})
        set(host "unknown")
    endif()
    set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES COMPILE_DEFINITIONS
        "NEL_BUILD_SYSTEM=\"CMake ${CMAKE_VERSION}\";NEL_BUILD_COMPILER=\"${CMAKE_CXX_COMPILER_ID}\";NEL_BUILD_COMPILER_VERSION=\"${CMAKE_CXX_COMPILER_VERSION}\";NEL_BUILD_HOST=\"${host}\";NEL_BUILD_DATE=\"${date}\";NEL_BUILD_COUNT=${NEL_BUILD_COUNT}")
endfunction()
