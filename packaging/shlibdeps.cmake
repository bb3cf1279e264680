# Read by cpack before it packs: the Debian package's dependencies, computed by dpkg-shlibdeps
# from the executables (NEBKARO_BINARIES) as CPackDeb's own option would. That option runs
# `file` on each of the sixteen thousand installed files to find the executables first, which
# takes many minutes; here the executables are known.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(work "${CPACK_PACKAGE_DIRECTORY}/_CPack_Packages/shlibdeps")
  file(MAKE_DIRECTORY "${work}/debian")
  file(WRITE "${work}/debian/control" "")
  execute_process(COMMAND dpkg-shlibdeps -O ${NEBKARO_BINARIES}
                  WORKING_DIRECTORY "${work}"
                  OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0 OR NOT out MATCHES "shlibs:Depends=([^\n]+)")
    message(FATAL_ERROR "dpkg-shlibdeps failed: ${err}")
  endif()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "${CMAKE_MATCH_1}")
endif()
