# Included by the tests and by the fuzz targets, which are built apart from them.
find_library(MSPACK_LIBRARY mspack REQUIRED)
find_path(MSPACK_HEADERS mspack.h REQUIRED)
add_library(strict_reader STATIC ${CMAKE_CURRENT_LIST_DIR}/StrictReader.cpp)
target_include_directories(strict_reader PUBLIC ${CMAKE_CURRENT_LIST_DIR}/.. SYSTEM PRIVATE ${MSPACK_HEADERS})
target_compile_options(strict_reader PRIVATE ${TOPICSMITH_WARNINGS})
target_link_libraries(strict_reader PRIVATE ${MSPACK_LIBRARY})
