# The Debian package: scripts/package.sh runs cpack on a release build. Depends
# are computed from the binaries by dpkg-shlibdeps; the image-format plugins that
# the program's pictures need (BMP, JPEG, GIF) come with libqt6gui6, the further
# formats of the toolkit's plugins are recommended.
set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_NAME "vistarro")
set(CPACK_PACKAGE_VENDOR "ZUV Software Development")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "slideshow photo album")
set(CPACK_PACKAGE_HOMEPAGE_URL "${VISTARRO_WEB_ADDRESS}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "ZUV Software Development <packages@vistarro.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION "graphics")
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins")
# Lines of the description stay within 80 characters, as Debian's tools ask.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
  "Vistarro browses the folders of the machine, collects pictures (BMP, JPEG
and GIF) into an album and plays the album as a full-screen timed slideshow.
Every change to the album is kept at once in a per-user settings store.

The package also holds vistarro-store, which prints the settings store,
vistarro-info, which prints the type, size and colour depth of pictures, and
vistarro-print, a print preview for rich text and plain text files.")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/package")
include(CPack)
