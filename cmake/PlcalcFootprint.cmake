# The target `footprint` shows how much room the libraries take on a device without an FPU. Configure with the preset armel:
# -Os and -fstack-usage. Fails when docs/footprint.md shows other figures.
if(NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "arm")
  return()
endif()
find_package(Python3 COMPONENTS Interpreter QUIET)
if(Python3_FOUND)
  add_custom_target(footprint
    COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/scripts/footprint.py --strip ${CMAKE_STRIP}
      --build ${PROJECT_BINARY_DIR} --document ${PROJECT_SOURCE_DIR}/docs/footprint.md $<TARGET_FILE:plcalc> $<TARGET_FILE:plutil>
    DEPENDS plcalc plutil VERBATIM COMMENT "Size and stack")
endif()
