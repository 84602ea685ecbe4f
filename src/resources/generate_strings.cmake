cmake_minimum_required(VERSION 3.20)
# Generates the headless string table (C++) and the Windows resource script
# from strings.txt, so both builds read the same texts.
# Usage: cmake -DIN=strings.txt -DCPP=out.cpp -DRC=out.rc [-DFIRST=1000 -DLAST=26300]
#          -P generate_strings.cmake
# FIRST and LAST bound the ids; a test table uses its own range so that its
# resources never share a block of 16 with the program's.
if(NOT DEFINED FIRST)
  set(FIRST 1000)
endif()
if(NOT DEFINED LAST)
  set(LAST 26300)
endif()

# Read the file whole and cut it by hand: as a CMake list, a text holding ';'
# or an unbalanced '[' would be split or merged.
file(READ "${IN}" rest)
set(cpp "// Generated from strings.txt; do not edit.\n#include \"resources/strings.h\"\n\n")
string(APPEND cpp "extern const StringEntry kStringTable[] = {\n")
set(rc "// Generated from strings.txt; do not edit.\n#pragma code_page(65001)\nSTRINGTABLE\nBEGIN\n")
set(count 0)
set(seen "")
set(number 0)
while(NOT rest STREQUAL "")
  string(FIND "${rest}" "\n" end)
  if(end EQUAL -1)
    set(line "${rest}")
    set(rest "")
  else()
    string(SUBSTRING "${rest}" 0 ${end} line)
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${rest}" ${end} -1 rest)
  endif()
  math(EXPR number "${number} + 1")
  string(REGEX REPLACE "\r$" "" line "${line}")
  if(line MATCHES "^#" OR line STREQUAL "")
    continue()
  endif()
  if(NOT line MATCHES "^([1-9][0-9]*)\t(.*)$")
    message(FATAL_ERROR "${IN}:${number}: expected an id, a tab and the text: ${line}")
  endif()
  set(id "${CMAKE_MATCH_1}")
  set(text "${CMAKE_MATCH_2}")
  if(id LESS FIRST OR id GREATER LAST)
    message(FATAL_ERROR "${IN}:${number}: id ${id} outside ${FIRST}..${LAST}")
  endif()
  if(id IN_LIST seen)
    message(FATAL_ERROR "${IN}:${number}: id ${id} twice")
  endif()
  list(APPEND seen ${id})
  # Only the escapes both outputs understand alike; a bare quote would end
  # the literal early.
  if(NOT text MATCHES "^([^\"\\\\]|\\\\[nt\\\\\"])*$")
    message(FATAL_ERROR "${IN}:${number}: id ${id}: a quote must be written \\\" and a "
                        "backslash \\\\; the only other escapes are \\n and \\t")
  endif()
  string(APPEND cpp "    {${id}, \"${text}\"},\n")
  # A resource script writes a quote inside a string as two quotes. Every
  # quote of a valid text follows an odd run of backslashes, so the leftmost
  # match is always the escape's own backslash.
  string(REPLACE "\\\"" "\"\"" rctext "${text}")
  string(APPEND rc "  ${id}, \"${rctext}\"\n")
  math(EXPR count "${count} + 1")
endwhile()
string(APPEND cpp "};\nextern const int kStringCount = ${count};\n")
string(APPEND rc "END\n")
file(WRITE "${CPP}.tmp" "${cpp}")
file(WRITE "${RC}.tmp" "${rc}")
# Only touch the outputs when they change, so builds stay incremental.
execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different "${CPP}.tmp" "${CPP}")
execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different "${RC}.tmp" "${RC}")
