# CPack: one .tar.gz of an installation. Debian's packages are made from debian/.

set(CPACK_PACKAGE_NAME plcalc)
set(CPACK_PACKAGE_VENDOR "The plcalc developers")
set(CPACK_PACKAGE_CONTACT "The plcalc developers <maintainers@plcalc.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_GENERATOR TGZ)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
