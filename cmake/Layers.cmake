# The layers of the house. Each is a static library that links what its row says and nothing else.
# The rows are also written to layers.txt in the build folder, against which a test compares the
# #include lines: all layers share one include root, so the compiler alone would let them pass.

if(MSVC)
  set(TOPICSMITH_WARNINGS /W4 /WX)
else()
  set(TOPICSMITH_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
                          -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
                          -Wnull-dereference -Wdouble-promotion -Wformat=2 -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC bug 105651: a short literal assigned to a std::string sets it off.
    list(APPEND TOPICSMITH_WARNINGS -Wno-restrict)
  endif()
  if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Sources that are compiled together look like headers to this warning.
    list(APPEND TOPICSMITH_WARNINGS -Wno-subobject-linkage)
  elseif(CMAKE_UNITY_BUILD)
    # A name may be a neighbour's constant. The static checks ask this of each source by itself.
    list(APPEND TOPICSMITH_WARNINGS -Wno-shadow)
  endif()
endif()

set(TOPICSMITH_LAYER_ROWS ${CMAKE_BINARY_DIR}/layers.txt)
file(WRITE ${TOPICSMITH_LAYER_ROWS} "")

# add_layer(NAME SOURCES file... [ALONE file...] [USES layer...] [FOLDER folder])
# The target is called topicsmith_NAME. FOLDER is given where the folder below src/ has another name
# than the layer: one folder is one library, whose files all belong to this row. ALONE are those of
# the sources that no build compiles together with others, as they have names of their own that a
# neighbour has for something else, or as a warning is misled by what it sees together.
function(add_layer name)
  cmake_parse_arguments(LAYER "" "FOLDER" "SOURCES;ALONE;USES" ${ARGN})
  if(NOT LAYER_FOLDER)
    set(LAYER_FOLDER ${name})
  endif()
  list(TRANSFORM LAYER_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/${LAYER_FOLDER}/)
  if(LAYER_ALONE)
    list(TRANSFORM LAYER_ALONE PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/${LAYER_FOLDER}/)
    set_source_files_properties(${LAYER_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endif()
  add_library(topicsmith_${name} STATIC ${LAYER_SOURCES})
  target_include_directories(topicsmith_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_compile_options(topicsmith_${name} PRIVATE ${TOPICSMITH_WARNINGS})
  foreach(used IN LISTS LAYER_USES)
    target_link_libraries(topicsmith_${name} PUBLIC topicsmith_${used})
  endforeach()
  list(JOIN LAYER_USES " " uses)
  file(APPEND ${TOPICSMITH_LAYER_ROWS} "${name} ${LAYER_FOLDER} ${uses}\n")
endfunction()
