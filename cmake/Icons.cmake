# The icons as a resource of the program, in `icons`: the drawings themselves where Qt can draw them at
# run time, otherwise pictures of them, large enough for all sizes.
file(GLOB drawings CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/assets/icons/*.svg)
if(NOT TARGET Qt6::Svg)
  find_program(RSVG_CONVERT rsvg-convert REQUIRED)
endif()
set(icon_entries "")
foreach(drawing IN LISTS drawings)
  get_filename_component(name ${drawing} NAME_WE)
  set(file ${drawing})
  if(NOT TARGET Qt6::Svg)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/icons/${name}.png)
    add_custom_command(OUTPUT ${file}
      COMMAND ${RSVG_CONVERT} --width 192 --height 192 --output ${file} ${drawing}
      DEPENDS ${drawing} VERBATIM)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons)
  endif()
  string(APPEND icon_entries "    <file alias=\"${name}\">${file}</file>\n")
endforeach()
file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/icons.qrc
     CONTENT "<RCC>\n  <qresource prefix=\"/icons\">\n@icon_entries@  </qresource>\n</RCC>\n" @ONLY)
qt_add_resources(icons ${CMAKE_CURRENT_BINARY_DIR}/icons.qrc)
