# What every target of the house shares, and the two ways to add a room to it.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

# Two dozen test programs are linked again after each change below them: lld does it in a fifth of
# the time.
find_program(LLD ld.lld)
if(LLD)
  add_link_options(-fuse-ld=lld)
endif()

option(HEARTHBOOK_WERROR "Treat warnings as errors" OFF)
option(HEARTHBOOK_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)

add_compile_options(-Wall -Wextra -Wpedantic)
# The places that tests name say nothing of the clone, so that the compiler cache serves every clone.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)
if(CMAKE_UNITY_BUILD)
  # Warns of anonymous namespaces in headers; in a unity build every source file is one.
  add_compile_options(-Wno-subobject-linkage)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # g++ 12 sees overlapping copies in the concatenation of std::strings where there are none.
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
endif()
if(HEARTHBOOK_WERROR)
  add_compile_options(-Werror)
endif()
if(HEARTHBOOK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# hearthbook_library(NAME SOURCES ... [LINKS ...] [PRIVATE_LINKS ...])
#
# One folder, one library (a floor with windows has two, <floor>_rules and <floor>_forms).
# A library shows its own folder to those that link it and to nobody else: a header of a
# floor above is not on the include path, so an include upward does not compile.
function(hearthbook_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
endfunction()

# hearthbook_forms(NAME SOURCES ... [LINKS ...] [PRIVATE_LINKS ...]): the same for a library
# with windows, whose .ui files and Q_OBJECT classes Qt's tools compile.
function(hearthbook_forms name)
  hearthbook_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
endfunction()
