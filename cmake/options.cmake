# What was compiled before, in whichever checkout, is taken from ccache, where that is there. It looks
# through a precompiled header only when it is told that the header's own time does not matter.
find_program(QZ7_CCACHE ccache)
if(QZ7_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${QZ7_CCACHE})
endif()

set(gnu FALSE)
set(gnu_like FALSE)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  set(gnu TRUE)
endif()
if(gnu OR (CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT MSVC))
  set(gnu_like TRUE)
endif()

# Every target of ours has these; a folder is one library that lists what it links. Warnings are
# errors on the compilers that ./test builds with; another one warns and goes on.
add_library(qz7_options INTERFACE)
target_include_directories(qz7_options INTERFACE ${CMAKE_SOURCE_DIR})
if(gnu_like)
  target_compile_options(qz7_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
elseif(MSVC)
  add_compile_options(/permissive- /Zc:__cplusplus /utf-8 /EHsc)
  target_compile_options(qz7_options INTERFACE /W4)
  target_compile_definitions(qz7_options INTERFACE _CRT_SECURE_NO_WARNINGS)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
endif()
if(gnu)
  add_compile_options(-fpch-preprocess)
  # GCC 12 sees overlapping copies in "text" + std::string that are none (its bug 105651).
  target_compile_options(qz7_options INTERFACE -Wno-restrict)
endif()
if(QZ7_SANITIZE)
  if(NOT gnu_like)
    message(FATAL_ERROR "QZ7_SANITIZE knows the flags of GCC and Clang only.")
  endif()
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(QZ7_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzz targets need clang's libFuzzer.")
  endif()
  # Nearly all comparisons are the sanitizers' own: to follow them too costs half the speed.
  add_compile_options(-fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()
if(WIN32)
  # Windows 7 is the oldest system that the program runs on.
  target_compile_definitions(qz7_options INTERFACE
    _WIN32_WINNT=0x0601 WINVER=0x0601 WIN32_LEAN_AND_MEAN NOMINMAX)
endif()
if(MINGW)
  target_compile_definitions(qz7_options INTERFACE __USE_MINGW_ANSI_STDIO=1)
  # Less memory: no symbols, and sections that lie in the file as in memory, so that a loader can map
  # them where it would have to copy them. No time of linking: the same sources give the same bytes.
  add_link_options(-static $<$<CONFIG:Release>:-s> -Wl,--file-alignment=4096
    -Wl,--no-insert-timestamp)
endif()

# Tests are built once and run once: no optimisation, GCC 12's false alarms of above in their further
# guises off, and signs not looked at, which GCC's -Wconversion does not do in C++ either.
add_library(qz7_test_options INTERFACE)
if(gnu_like)
  target_compile_options(qz7_test_options INTERFACE -O0 -Wno-sign-conversion)
endif()
if(gnu)
  target_compile_options(qz7_test_options INTERFACE -Wno-array-bounds
    -Wno-stringop-overflow -Wno-stringop-overread)
endif()

# qz7_library(NAME SOURCES... LINKS LIBRARIES...)
function(qz7_library name)
  cmake_parse_arguments(PARSE_ARGV 1 lib "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${lib_SOURCES})
  target_link_libraries(${name} PUBLIC ${lib_LINKS} PRIVATE qz7_options)
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  if(QZ7_FUZZ)
    # Run millions of times, while a test runs it once.
    target_compile_options(${name} PRIVATE -O2)
  endif()
endfunction()

# The file of a folder that belongs to the platform: NAME_posix.cpp or NAME_win32.cpp.
function(qz7_platform_source variable stem)
  if(WIN32)
    set(${variable} ${stem}_win32.cpp PARENT_SCOPE)
  else()
    set(${variable} ${stem}_posix.cpp PARENT_SCOPE)
  endif()
endfunction()
