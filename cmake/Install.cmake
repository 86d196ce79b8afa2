# What is installed, and how other projects find it. The tree can be moved as a whole: everything in
# it finds the rest by relative paths.
include(CMakePackageConfigHelpers)

set(VSK_CMAKE_DIR lib/cmake/vskcore)
set(VSK_PKGCONFIG_DIR lib/pkgconfig)

install(DIRECTORY include/vskcore DESTINATION include COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(TARGETS vskcore EXPORT vskcore-targets
  LIBRARY DESTINATION ${VSK_CORE_DIR} COMPONENT runtime NAMELINK_COMPONENT dev)
install(EXPORT vskcore-targets NAMESPACE vskcore:: DESTINATION ${VSK_CMAKE_DIR} COMPONENT dev)

configure_package_config_file(cmake/vskcoreConfig.cmake.in
  ${CMAKE_BINARY_DIR}/package/vskcoreConfig.cmake INSTALL_DESTINATION ${VSK_CMAKE_DIR}
  NO_SET_AND_CHECK_MACRO)
# Before 1.0 a minor version may change the contract.
write_basic_package_version_file(${CMAKE_BINARY_DIR}/package/vskcoreConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
configure_file(cmake/vskcore.pc.in ${CMAKE_BINARY_DIR}/package/vskcore.pc @ONLY)
install(FILES
  ${CMAKE_BINARY_DIR}/package/vskcoreConfig.cmake
  ${CMAKE_BINARY_DIR}/package/vskcoreConfigVersion.cmake
  DESTINATION ${VSK_CMAKE_DIR} COMPONENT dev)
install(FILES ${CMAKE_BINARY_DIR}/package/vskcore.pc
  DESTINATION ${VSK_PKGCONFIG_DIR} COMPONENT dev)

install(FILES docs/vsk.1 DESTINATION share/man/man1 COMPONENT runtime)
install(FILES README.md CHANGELOG.md DESTINATION share/doc/vskcore COMPONENT runtime)
install(DIRECTORY docs/ DESTINATION share/doc/vskcore/docs COMPONENT dev
  FILES_MATCHING PATTERN "*.md")
install(DIRECTORY examples DESTINATION share/doc/vskcore COMPONENT dev)
