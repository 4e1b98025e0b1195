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

# Every tests/<folder>/tst_*.cpp is a test of its own, linked against the folder's
# library and run headless.
function(vistarro_folder_tests folder)
  file(GLOB tests CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/${folder}/tst_*.cpp")
  foreach(test_source ${tests})
    get_filename_component(name "${test_source}" NAME_WE)
    add_executable(${name} "${test_source}")
    target_link_libraries(${name} PRIVATE vistarro_${folder} vistarro_testsupport Qt6::Test)
    add_test(NAME ${folder}/${name} COMMAND ${name})
    set_tests_properties(${folder}/${name} PROPERTIES
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=detect_leaks=0"
      TIMEOUT 120)
  endforeach()
endfunction()
