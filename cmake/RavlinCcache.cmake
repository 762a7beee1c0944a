# Use ccache when it is installed. The base directory makes cache hits survive
# a fresh clone at another path (CI builds from a new checkout every time).
find_program(RAVLIN_CCACHE ccache)
if(RAVLIN_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
      CCACHE_SLOPPINESS=time_macros,include_file_mtime,include_file_ctime
      ${RAVLIN_CCACHE})
endif()
