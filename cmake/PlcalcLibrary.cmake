# The libraries are all built in one way.

# plcalc_configure_objects(<object library> <PREFIX>): hidden visibility, exact arithmetic, <PREFIX>_STATIC or
# <PREFIX>_BUILDING for the export mark.
function(plcalc_configure_objects target prefix)
  set_target_properties(${target} PROPERTIES
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${target} PRIVATE plcalc_fp plcalc_warnings)
  if(NOT MSVC AND NOT EMSCRIPTEN)  # whose compiler refuses the flag, having nothing to put in place
    # Our functions cannot be replaced by others of the same name, so they may call each other directly and be
    # inlined.
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  endif()
  if(PLCALC_ABI)  # which is read from the debug information
    target_compile_options(${target} PRIVATE -g -fno-var-tracking)
  endif()
  if(BUILD_SHARED_LIBS)
    target_compile_definitions(${target} PRIVATE ${prefix}_BUILDING)
  else()
    target_compile_definitions(${target} PUBLIC ${prefix}_STATIC)
  endif()
endfunction()

# plcalc_configure_library(<library> <PREFIX> <folder of its public headers>)
function(plcalc_configure_library target prefix include_dir)
  add_library(plcalc::${target} ALIAS ${target})
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${include_dir}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_compile_features(${target} INTERFACE cxx_std_11)
  # Before 1.0 a new minor version may break what was built with an older one.
  set(soversion ${PROJECT_VERSION_MAJOR})
  if(soversion EQUAL 0)
    set(soversion ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  endif()
  set_target_properties(${target} PROPERTIES
    LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION}
    SOVERSION ${soversion}
    INSTALL_RPATH "$ORIGIN")  # plcalc finds the plutil that was installed beside it
  if(NOT BUILD_SHARED_LIBS)
    target_compile_definitions(${target} PUBLIC ${prefix}_STATIC)
  elseif(WIN32)
    plcalc_configure_dll(${target})
  elseif(UNIX AND NOT APPLE)
    # PLCALC_API decides what is exported; the script only keeps the standard library's templates, which
    # are visible by their own marks, out of the interface.
    set(script ${PROJECT_SOURCE_DIR}/cmake/no_std_symbols.map)
    target_link_options(${target} PRIVATE LINKER:--version-script=${script} LINKER:-Bsymbolic-functions)
    if(NOT PLCALC_SANITIZE)  # whose routines the program brings
      target_link_options(${target} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${script})
  endif()
endfunction()

# plcalc_configure_dll(<library>): plcalc.dll, the name by which hosts such as .NET and Java look for the library plcalc,
# with what the Explorer shows of it, and the same bytes whenever it is built.
function(plcalc_configure_dll target)
  set_target_properties(${target} PROPERTIES PREFIX "")
  if(MINGW)
    target_link_options(${target} PRIVATE LINKER:--no-insert-timestamp)
  endif()
  string(REPLACE "." "," numbers ${PROJECT_VERSION})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
endfunction()
