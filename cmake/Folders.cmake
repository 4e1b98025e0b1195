# A subsystem folder of src/ becomes one static library, vistarro_<folder>, of every
# source file in it; new files are picked up without editing this list.
function(vistarro_folder_library folder)
  file(GLOB sources CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp"
    "${PROJECT_SOURCE_DIR}/src/${folder}/*.h"
    "${PROJECT_SOURCE_DIR}/src/${folder}/*.qrc")
  if(NOT sources)
    # A subsystem that has no code yet.
    add_library(vistarro_${folder} INTERFACE)
    target_link_libraries(vistarro_${folder} INTERFACE ${ARGN})
    return()
  endif()
  add_library(vistarro_${folder} STATIC ${sources})
  target_include_directories(vistarro_${folder} PUBLIC "${PROJECT_SOURCE_DIR}/src")
  target_link_libraries(vistarro_${folder} PUBLIC ${ARGN})
endfunction()

# The environment of every test: widgets on the offscreen platform, and
# LeakSanitizer (in the sanitizer build) told what the system's libraries leak.
set(VISTARRO_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen" "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")

# Every tests/<folder>/tst_*.cpp is a test of its own, linked against the folder's
# library and run headless. Its CTest label is unit, or gui for the tests named
# after GUI (they drive windows), or reliability for those named after
# RELIABILITY (slow: crashes, damaged stores, huge folders):
#   vistarro_folder_tests(album GUI tst_frmMain RELIABILITY tst_hostile_files)
function(vistarro_folder_tests folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "GUI;RELIABILITY")
  file(GLOB tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${folder}/tst_*.cpp")
  foreach(test_source ${tests})
    get_filename_component(name "${test_source}" NAME_WE)
    add_executable(${name} "${test_source}")
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
