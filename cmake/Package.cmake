# Debian packages, one for each component of the installation: run cpack in the build folder.
# The program is in the core's package, because it shows what any plug-in collects, not only those of
# vsk-collectors; who installs the core gets these too, unless told otherwise.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "vskcore developers")
set(CPACK_PACKAGE_CONTACT "vskcore developers <vskcore@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package opens with a line of its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime dev collectors)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(same_core "vskcore (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME vskcore)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS vsk-collectors)
# Loaded by the first upload.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS libcurl4)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "tells what this machine is: core library and program
The core holds a schema of CIM classes, asks collector plug-ins for instances,
checks what they write against the schema, and renders it for people.

The program vsk collects and prints. What it can tell comes with plug-ins, such
as those of vsk-collectors.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME vskcore-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${same_core}, libboost-dev (>= 1.74)")
set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "cmake, pkg-config")
set(CPACK_DEBIAN_DEV_DESCRIPTION "headers of vskcore, for hosts and plug-ins
For programs in C++ that embed the core library, and for collector plug-ins in C
or C++: the headers, what CMake and pkg-config find, documents and examples.")

set(CPACK_DEBIAN_COLLECTORS_PACKAGE_NAME vsk-collectors)
set(CPACK_DEBIAN_COLLECTORS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COLLECTORS_PACKAGE_DEPENDS "${same_core}")
set(CPACK_DEBIAN_COLLECTORS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/${VSK_CORE_DIR})
set(CPACK_DEBIAN_COLLECTORS_DESCRIPTION "collector plug-ins for vskcore
They tell who made the machine and which one it is, its firmware, its processors
and its operating system, out of the kernel's files.")

include(CPack)
