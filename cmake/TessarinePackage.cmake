# How the engine is installed: a package `Tessarine` whose components each have their targets in a file of their own, so
# that a program which asks for one of them needs nothing of the others.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# A folder of our own: `themes/` and `languages/` are too common as names for where all headers lie.
set(tessarine_headers ${CMAKE_INSTALL_INCLUDEDIR}/tessarine)
set(tessarine_package ${CMAKE_INSTALL_LIBDIR}/cmake/Tessarine)
set(tessarine_data ${CMAKE_INSTALL_DATADIR}/tessarine)
set(tessarine_documents ${CMAKE_INSTALL_DATADIR}/doc/tessarine)

# tessarine_component(component target...): libraries of the component, each known as Tessarine::<its EXPORT_NAME>.
# What is installed for it is the install component Tessarine<component>; `Core` is what every program gets.
function(tessarine_component component)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE ${source_names})
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  endforeach()
  install(TARGETS ${ARGN} EXPORT Tessarine${component}Targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Tessarine${component}
    FILE_SET HEADERS DESTINATION ${tessarine_headers} COMPONENT Tessarine${component})
  set_property(GLOBAL APPEND PROPERTY TESSARINE_COMPONENTS ${component})
  set_property(GLOBAL APPEND PROPERTY TESSARINE_INSTALLED ${ARGN})
endfunction()

# tessarine_licence(component name text): the licence of what others wrote and the component's libraries contain. Nothing is
# installed where its package has no text, which the notices say then.
function(tessarine_licence component name text)
  file(GLOB found ${text}*)
  if(found)
    install(FILES ${found} RENAME ${name} DESTINATION ${tessarine_documents}/licences COMPONENT Tessarine${component})
  endif()
endfunction()

# tessarine_package(): to be called once all components are known.
function(tessarine_package)
  get_property(components GLOBAL PROPERTY TESSARINE_COMPONENTS)
  list(REMOVE_DUPLICATES components)
  foreach(component ${components})
    install(EXPORT Tessarine${component}Targets NAMESPACE Tessarine:: DESTINATION ${tessarine_package}
      COMPONENT Tessarine${component})
  endforeach()
  string(REGEX MATCH "^[0-9]+" icu_major ${ICU_VERSION})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TessarineConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TessarineConfig.cmake INSTALL_DESTINATION ${tessarine_package} PATH_VARS tessarine_data)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/TessarineConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/TessarineConfig.cmake ${PROJECT_BINARY_DIR}/TessarineConfigVersion.cmake
    DESTINATION ${tessarine_package} COMPONENT TessarineCore)
  install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/THIRD_PARTY_NOTICES.md
    DESTINATION ${tessarine_documents} COMPONENT TessarineCore)
endfunction()
