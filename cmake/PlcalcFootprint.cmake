# How much room the libraries take on a device without an FPU. Configure with the preset armel: -Os and -fstack-usage.
#   footprint           prints the tables; fails when docs/footprint.md shows other figures
#   footprint_document  puts the tables into docs/footprint.md
if(NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "arm")
  return()
endif()
find_package(Python3 COMPONENTS Interpreter QUIET)
if(Python3_FOUND)
  set(footprint Python3::Interpreter ${PROJECT_SOURCE_DIR}/scripts/footprint.py --strip ${CMAKE_STRIP}
    --build ${PROJECT_BINARY_DIR} --document ${PROJECT_SOURCE_DIR}/docs/footprint.md
    $<TARGET_FILE:plcalc> $<TARGET_FILE:plutil>)
  add_custom_target(footprint COMMAND ${footprint}
    DEPENDS plcalc plutil VERBATIM COMMENT "Size and stack")
  add_custom_target(footprint_document COMMAND ${footprint} --write
    DEPENDS plcalc plutil VERBATIM COMMENT "Size and stack, into the document")
endif()
