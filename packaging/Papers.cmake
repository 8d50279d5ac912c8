# What a package tells a reader: manual pages, changes and licences, pressed as Debian wants them.

# pressed(name source): a compressed copy, without a time in it, so that the same source gives the same package.
function(pressed name source)
  set(file ${CMAKE_CURRENT_BINARY_DIR}/papers/${name})
  get_filename_component(folder ${file} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${file} DEPENDS ${source} VERBATIM COMMAND sh -c "gzip -9nc '${source}' > '${file}'")
  set(files ${files} ${file} PARENT_SCOPE)
endfunction()

foreach(page quillet quillet-account quillet-highlighter)
  pressed(${page}.1.gz ${CMAKE_CURRENT_SOURCE_DIR}/man/${page}.1)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/papers/${page}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT quillet)
endforeach()

pressed(changelog.gz ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
# papers(package component): the files that each Debian package has below doc/.
macro(papers package component)
  set(source ${package})
  configure_file(changelog.Debian.in ${package}.changelog @ONLY)
  pressed(${package}/changelog.Debian.gz ${CMAKE_CURRENT_BINARY_DIR}/${package}.changelog)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/papers/changelog.gz
    ${CMAKE_CURRENT_BINARY_DIR}/papers/${package}/changelog.Debian.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE RENAME copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
endmacro()
papers(quillet quillet)
papers(libtessarine-dev TessarineCore)

install(FILES ${PROJECT_SOURCE_DIR}/THIRD_PARTY_NOTICES.md
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quillet COMPONENT quillet)
# licence(name text): that of what the program embeds.
function(licence name text)
  install(FILES ${node_modules}/${text} RENAME ${name} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quillet/licences
    COMPONENT quillet)
endfunction()
licence(highlight.js @highlightjs/cdn-assets/LICENSE)
licence(framework7-icons framework7-icons/LICENSE)
# For who sets up a server.
install(FILES ${PROJECT_SOURCE_DIR}/platform/cloud/schema.sql
  DESTINATION ${CMAKE_INSTALL_DATADIR}/quillet COMPONENT quillet)
