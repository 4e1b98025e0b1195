# A folder of src/ becomes one static library of every source file in it, named
# after the folder's last part (src/platform/core is vistarro_core); new files are
# picked up without editing this list.
#
# Each library sees only its own headers and those of the libraries it links: its
# include root, in the build tree, holds one link to its own folder under the
# folder's path, so "settings/clsLibrary.h" is found from settings and from every
# library that links vistarro_settings, and from nowhere else. A call from a lower
# folder to a higher one therefore doesn't compile.
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH VISTARRO_SOURCE_DIR)

function(vistarro_folder_library folder)
  get_filename_component(name "${folder}" NAME)
  set(root "${PROJECT_BINARY_DIR}/include/${name}")
  get_filename_component(parent "${root}/${folder}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${VISTARRO_SOURCE_DIR}/src/${folder}" "${root}/${folder}" SYMBOLIC)
  file(GLOB sources CONFIGURE_DEPENDS
    "${VISTARRO_SOURCE_DIR}/src/${folder}/*.cpp"
    "${VISTARRO_SOURCE_DIR}/src/${folder}/*.h"
    "${VISTARRO_SOURCE_DIR}/src/${folder}/*.qrc")
  add_library(vistarro_${name} STATIC ${sources})
  target_include_directories(vistarro_${name} PUBLIC "${root}")
  target_link_libraries(vistarro_${name} PUBLIC ${ARGN})
  # For the include graph check: the library, its folder, the folder libraries it links.
  list(FILTER ARGN INCLUDE REGEX "^vistarro_")
  list(JOIN ARGN " " links)
  set_property(GLOBAL APPEND PROPERTY VISTARRO_LAYER_GRAPH "vistarro_${name} ${folder} ${links}")
endfunction()

# Writes the link graph of the folder libraries, one line each, for the check
# that the include graph matches it (tests/layers/include_graph.py).
function(vistarro_write_layer_graph file)
  get_property(lines GLOBAL PROPERTY VISTARRO_LAYER_GRAPH)
  list(JOIN lines "\n" text)
  file(WRITE "${file}" "${text}\n")
endfunction()

# The environment of every test: widgets on the offscreen platform, and
# LeakSanitizer (in the sanitizer build) told what the system's libraries leak.
set(VISTARRO_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen" "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")

# Every tests/<folder>/tst_*.cpp is a test of its own, linked against the folder's
# library and the test support (tests/support), run headless and unattended. Its
# CTest label is unit, or gui for the tests named after GUI (they drive windows),
# or reliability for those named after RELIABILITY (slow: crashes, damaged
# stores, huge folders):
#   vistarro_folder_tests(album GUI tst_frmMain RELIABILITY tst_hostile_files)
function(vistarro_folder_tests folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "GUI;RELIABILITY")
  file(GLOB tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${folder}/tst_*.cpp")
  foreach(test_source ${tests})
    get_filename_component(name "${test_source}" NAME_WE)
    add_executable(${name} "${test_source}" $<TARGET_OBJECTS:vistarro_testrun>)
    target_link_libraries(${name} PRIVATE vistarro_${folder} vistarro_testsupport Qt6::Test)
    add_test(NAME ${folder}/${name} COMMAND ${name})
    set(label unit)
    if(name IN_LIST arg_GUI)
      set(label gui)
    elseif(name IN_LIST arg_RELIABILITY)
      set(label reliability)
    endif()
    set_tests_properties(${folder}/${name} PROPERTIES
      ENVIRONMENT "${VISTARRO_TEST_ENVIRONMENT}"
      LABELS ${label}
      TIMEOUT 120)
  endforeach()
endfunction()
