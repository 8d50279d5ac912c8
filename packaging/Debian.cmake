# Two Debian packages: the program, and the engine for programs of others.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "The Quillet authors")
set(CPACK_PACKAGE_CONTACT ${maintainer})
set(CPACK_PACKAGE_HOMEPAGE_URL ${homepage})
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/StripLibraries.cmake)
set(CPACK_COMPONENTS_ALL quillet)
get_property(components GLOBAL PROPERTY TESSARINE_COMPONENTS)
list(REMOVE_DUPLICATES components)
foreach(component ${components})
  list(APPEND CPACK_COMPONENTS_ALL Tessarine${component})
  string(TOUPPER Tessarine${component} name)
  set(CPACK_COMPONENT_${name}_GROUP development)
endforeach()
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# The access rights that Debian wants, whoever builds.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
  WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_QUILLET_PACKAGE_NAME quillet)
set(CPACK_DEBIAN_QUILLET_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_QUILLET_PACKAGE_SHLIBDEPS ON)
# Loaded by name, so no tool sees them.
set(CPACK_DEBIAN_QUILLET_PACKAGE_DEPENDS "libqt6sql6-sqlite, libqt6sql6-psql")
set(CPACK_DEBIAN_QUILLET_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus, fonts-dejavu-core, qt6-wayland,
  xdg-desktop-portal, xdg-utils")
string(REPLACE "\n  " " " CPACK_DEBIAN_QUILLET_PACKAGE_RECOMMENDS "${CPACK_DEBIAN_QUILLET_PACKAGE_RECOMMENDS}")
set(CPACK_COMPONENT_QUILLET_DESCRIPTION "personal library of source-code snippets
Keeps named snippets with their language, notes, tags and folder, shows them
in one sidebar, edits them highlighted in a theme, and shares them as text or
as an image.

Works offline; several devices meet in a database of the user's own.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtessarine-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libicu-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "g++ (>= 4:12), cmake, qt6-base-dev (>= ${Qt6_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "code-editing engine for C++ programs
A line-indexed text store, incremental highlighting and indentation by
tree-sitter, search and replace, and the layout of what is in view. Its core
needs no toolkit; a text view on Qt 6 is included, and so are languages and
themes.

All libraries are static.")
include(CPack)
