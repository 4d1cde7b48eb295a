find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    # Precompiled headers are cacheable only when their macros may differ and their times are ignored.
    set(_launcher ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        ${CCACHE_PROGRAM})
    set(CMAKE_C_COMPILER_LAUNCHER ${_launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${_launcher})
endif()
