# Hosts in other languages and outside projects, run as their users would run them.
set(python env TA_VORLUMINE=$<TARGET_FILE:ta_vorlumine>)
set(quiet)
if(VORLUMINE_SANITIZE)
  # The interpreter was built without the runtimes that the library needs first in its process.
  foreach(library asan stdc++)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=lib${library}.so
      OUTPUT_VARIABLE path_of_${library} OUTPUT_STRIP_TRAILING_WHITESPACE)
  endforeach()
  list(APPEND python LD_PRELOAD=${path_of_asan}:${path_of_stdc++})
  # Interpreter, toolkit and message bus keep memory to their end; the other tests look for leaks.
  set(quiet ASAN_OPTIONS=detect_leaks=0)
endif()

set(example ${CMAKE_CURRENT_SOURCE_DIR}/example_host $<TARGET_FILE:vorlumine_rule_store>)
add_test(NAME example_c COMMAND ${example} $<TARGET_FILE:example_host>)
add_test(NAME example_thread COMMAND ${example} $<TARGET_FILE:example_host_thread>)
add_test(NAME example_python
  COMMAND ${example} ${python} python3 ${PROJECT_SOURCE_DIR}/examples/host.py)
set_tests_properties(example_c example_thread example_python PROPERTIES
  TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${quiet}")

# What installs and compiles is about files, not about memory, and takes as long as the compiler does.
if(NOT VORLUMINE_SANITIZE)
  add_test(NAME installed_library
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/installed_library ${CMAKE_BINARY_DIR})
  add_test(NAME subproject COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/subproject ${PROJECT_SOURCE_DIR})
  set_tests_properties(installed_library subproject PROPERTIES
    TIMEOUT 600 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endif()
