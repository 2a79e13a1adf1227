# Debian package of the whole installation (libraries, headers, Fortran
# module, CMake and pkg-config files, gas data, fluiddb, Python package):
#   cmake -S . -B build-deb -DCMAKE_INSTALL_PREFIX=/usr -DONDREL_BUILD_TESTS=OFF
#   cmake --build build-deb && (cd build-deb && cpack -G DEB)
# gives ondrel_<version>_<arch>.deb. Run-time dependencies come from
# dpkg-shlibdeps; SQLite's development files are recommended, as linking
# with the static library needs them.
set(CPACK_PACKAGE_NAME ondrel)
set(CPACK_PACKAGE_VENDOR "Ondrel developers")
set(CPACK_PACKAGE_CONTACT "Ondrel developers <maintainers@users.noreply.c-seed-4165d243.example>"
  CACHE STRING "Maintainer of the packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
  "Thermophysical properties: ideal-gas mixtures with condensing water, IAPWS-IF97, IFC-67")
set(CPACK_PACKAGE_DESCRIPTION
  "Ondrel is called from C, C++, Fortran and Python: an ideal-gas mixture model with
a gas table of NASA polynomials and condensing water, an IAPWS-IF97 library
for water and steam, and the IFC-67 water-and-steam package PWSFTN.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_STRIP_FILES OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# libif97 is part of the package: dpkg-shlibdeps finds it there.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR}")
# The Python package is compiled for this interpreter's version and needs numpy.
if(ONDREL_BUILD_PYTHON)
  math(EXPR next_minor "${Python3_VERSION_MINOR} + 1")
  set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "python3 (>= ${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR}), python3 (<< ${Python3_VERSION_MAJOR}.${next_minor}), python3-numpy")
endif()
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libsqlite3-dev, pkgconf")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gfortran, cmake")
include(CPack)
