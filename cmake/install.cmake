# What `cmake --install` puts where, in four components that can be installed apart:
#   Runtime        the library, and on Linux the udev rule
#   Development    header, import libraries, packages for CMake and pkg-config, koraxdr(3)
#   Tools          koraxsim and its manual page
#   Documentation  the pages of docs/ for applications' authors, examples, bindings
# What is installed finds itself by its own place, so the whole tree can be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(cmake_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/koraxdr)

target_include_directories(koraxdr INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS koraxdr EXPORT koraxdrTargets
  RUNTIME COMPONENT Runtime
  LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE COMPONENT Development)
install(FILES include/koraxdr.h TYPE INCLUDE COMPONENT Development)

install(EXPORT koraxdrTargets NAMESPACE koraxdr:: DESTINATION ${cmake_package_dir}
  COMPONENT Development)
configure_package_config_file(cmake/koraxdrConfig.cmake.in
  ${PROJECT_BINARY_DIR}/koraxdrConfig.cmake INSTALL_DESTINATION ${cmake_package_dir}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/koraxdrConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/koraxdrConfig.cmake
  ${PROJECT_BINARY_DIR}/koraxdrConfigVersion.cmake
  DESTINATION ${cmake_package_dir} COMPONENT Development)

cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR
  BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE pc_libdir)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR
  BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE pc_includedir)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE pc_prefix)
configure_file(cmake/koraxdr.pc.in ${PROJECT_BINARY_DIR}/koraxdr.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/koraxdr.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT Development)

if(WIN32)
  # The import library for other compilers' linkers, and the list that one can be made from.
  get_target_property(library_binary_dir koraxdr BINARY_DIR)
  install(FILES $<TARGET_LINKER_FILE_DIR:koraxdr>/koraxdr.lib TYPE LIB COMPONENT Development)
  install(FILES ${library_binary_dir}/koraxdr.def TYPE LIB COMPONENT Development)
else()
  install(FILES packaging/70-korax.rules DESTINATION lib/udev/rules.d COMPONENT Runtime)
  install(FILES docs/man/koraxdr.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT Development)
  if(TARGET koraxsim)
    install(TARGETS koraxsim RUNTIME COMPONENT Tools)
    install(FILES docs/man/koraxsim.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  endif()
endif()

# How the library is built inside concerns its own developers only.
install(DIRECTORY docs/ TYPE DOC COMPONENT Documentation
  FILES_MATCHING PATTERN "*.md" PATTERN architecture.md EXCLUDE PATTERN man EXCLUDE
  PATTERN pictures EXCLUDE)
install(FILES CHANGELOG.md TYPE DOC COMPONENT Documentation)
install(DIRECTORY examples TYPE DOC COMPONENT Documentation FILES_MATCHING PATTERN "*.c")
install(DIRECTORY bindings TYPE DOC COMPONENT Documentation
  PATTERN __pycache__ EXCLUDE PATTERN CMakeLists.txt EXCLUDE)
