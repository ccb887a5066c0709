# The target `docs` makes HTML of the public headers and of the guide. A warning, such as for a name without a contract or
# a link that leads nowhere, is an error.
find_package(Doxygen QUIET)
find_package(Python3 COMPONENTS Interpreter QUIET)
if(NOT DOXYGEN_FOUND OR NOT Python3_FOUND OR NOT EXISTS ${PROJECT_SOURCE_DIR}/docs/guide)  # recipes take the sources alone
  return()
endif()

set(DOXYGEN_PROJECT_NAME plcalc)
set(DOXYGEN_PROJECT_NUMBER ${PROJECT_VERSION})
set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
set(DOXYGEN_WARN_NO_PARAMDOC YES)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_SORT_MEMBER_DOCS NO)  # the headers' own order
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED PLCALC_API= PLUTIL_API= PLPARCEL_API= PLPARCEL_TAGGED_API= PLC_API=)
set(DOXYGEN_HIDE_FRIEND_COMPOUNDS YES)  # the searches behind CFrazArea
find_program(PLCALC_SED sed)
if(PLCALC_SED)  # without it the contract's paragraphs run together
  set(DOXYGEN_INPUT_FILTER "${PLCALC_SED} -E -f cmake/contract_paragraphs.sed")
endif()
set(DOXYGEN_FILTER_PATTERNS "\"*.md=${Python3_EXECUTABLE} cmake/guide_pages.py\""
  "\"*/docs/words.txt=${Python3_EXECUTABLE} cmake/words.py\"")
set(DOXYGEN_EXTENSION_MAPPING txt=C++)
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/plutil/include
  ${PROJECT_SOURCE_DIR}/plparcel/include ${PROJECT_SOURCE_DIR}/c/include)
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/docs/guide/README.md)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_HTML_EXTRA_STYLESHEET ${PROJECT_SOURCE_DIR}/cmake/docs.css)
set(DOXYGEN_LAYOUT_FILE ${PROJECT_SOURCE_DIR}/cmake/docs_layout.xml)
set(DOXYGEN_GENERATE_TREEVIEW YES)
set(DOXYGEN_IMAGE_PATH docs docs/guide qgis)

# The pages, in the order of the table on the first one.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/guide/README.md)
execute_process(COMMAND ${Python3_EXECUTABLE} cmake/guide_pages.py --list WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  OUTPUT_VARIABLE pages OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
doxygen_add_docs(docs ${pages} docs/words.txt include plutil/include plparcel/include c/include
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} COMMENT "HTML of the guide and the public headers")
add_custom_command(TARGET docs POST_BUILD
  COMMAND ${CMAKE_COMMAND} -E echo "The first page is ${PROJECT_BINARY_DIR}/docs/html/index.html")
