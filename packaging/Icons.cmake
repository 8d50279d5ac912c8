# The icon, drawn in each size that a desktop asks for.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)

set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${id}.svg DESTINATION ${icons}/scalable/apps COMPONENT quillet)
foreach(size 16 22 24 32 48 64 128 256 512)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}x${size})
  set(picture ${folder}/${id}.png)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${picture} DEPENDS ${id}.svg VERBATIM
    COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${picture} ${CMAKE_CURRENT_SOURCE_DIR}/${id}.svg)
  list(APPEND files ${picture})
  install(FILES ${picture} DESTINATION ${icons}/${size}x${size}/apps COMPONENT quillet)
endforeach()
