# The program's libraries and what each links: the layers of src/, drawn in
# docs/DESIGN.md. Included by the program's build and by the fuzz targets' own
# project (fuzz/), which builds the same libraries with its instrumentation. The
# including project sets VISTARRO_VERSION, VISTARRO_WEB_ADDRESS and VISTARRO_APP_ID
# and finds Qt (Gui, Widgets, PrintSupport), SQLite and the xcb and libjpeg
# packages first.
include("${CMAKE_CURRENT_LIST_DIR}/Folders.cmake")

# One static library per subsystem folder; each links only what it builds on.
# The platform layer is three: core needs no widgets (the store, file names,
# conversions, errors, the program's facts, picture loading and header reading;
# libjpeg-turbo decodes the part of a JPEG that the show keeps),
# widgets holds forms and controls, print the printer and what draws on pages.
vistarro_folder_library(platform/core Qt6::Gui SQLite::SQLite3 PkgConfig::JPEG)
# config.h: the version, web address and app id that the including project set.
configure_file("${CMAKE_CURRENT_LIST_DIR}/config.h.in" "${PROJECT_BINARY_DIR}/generated/config.h" @ONLY)
target_include_directories(vistarro_core PUBLIC "${PROJECT_BINARY_DIR}/generated")
vistarro_folder_library(platform/widgets vistarro_core Qt6::Widgets PkgConfig::XCB)
vistarro_folder_library(platform/print vistarro_widgets Qt6::PrintSupport)
# The whole platform layer, for its tests.
add_library(vistarro_platform INTERFACE)
target_link_libraries(vistarro_platform INTERFACE vistarro_core vistarro_widgets vistarro_print)
vistarro_folder_library(resources vistarro_widgets)
vistarro_folder_library(settings vistarro_widgets)
vistarro_folder_library(presentation vistarro_settings)
vistarro_folder_library(viewer vistarro_settings vistarro_presentation)
vistarro_folder_library(about vistarro_settings vistarro_presentation)
vistarro_folder_library(printing vistarro_settings vistarro_resources vistarro_presentation vistarro_about
  vistarro_print)
vistarro_folder_library(picinfo vistarro_settings vistarro_presentation vistarro_printing)
# The one place where every layer's services are seen together: clsLibrary, the
# facade of the album, the tools and the tests.
vistarro_folder_library(library vistarro_settings vistarro_presentation vistarro_picinfo vistarro_printing)
vistarro_folder_library(album vistarro_resources vistarro_viewer vistarro_presentation vistarro_picinfo
  vistarro_about vistarro_printing vistarro_library)
