# Hosts in other languages and outside projects, run as their users would run them.
set(python env TA_VORLUMINE=$<TARGET_FILE:ta_vorlumine>)
set(sanitizers)
if(VORLUMINE_SANITIZE)
  # The interpreter knows nothing of the sanitizers that the library needs in its process, and keeps
  # memory to its end.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
    OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(APPEND python LD_PRELOAD=${runtime} ASAN_OPTIONS=detect_leaks=0)
  set(sanitizers -fsanitize=address,undefined)
endif()

set(example ${CMAKE_CURRENT_SOURCE_DIR}/example_host $<TARGET_FILE:rule_store>)
add_test(NAME example_c COMMAND ${example} $<TARGET_FILE:example_host>)
add_test(NAME example_thread COMMAND ${example} $<TARGET_FILE:example_host_thread>)
add_test(NAME example_python
  COMMAND ${example} ${python} python3 ${CMAKE_SOURCE_DIR}/examples/host.py)
add_test(NAME installed_library
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/installed_library ${CMAKE_BINARY_DIR} ${sanitizers})
set_tests_properties(example_c example_thread example_python installed_library PROPERTIES
  TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
