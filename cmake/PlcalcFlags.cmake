# Two interface targets with flags. An application sees neither of them:
#   plcalc_fp        flags on which the bits of the results depend; library, tests and benchmarks link it
#   plcalc_warnings  warnings for maintainers

add_library(plcalc_fp INTERFACE)
if(MSVC)
  target_compile_options(plcalc_fp INTERFACE /fp:precise)
else()
  # A fused multiply-add rounds once, but the results are defined with two roundings. The variable exists so that
  # scripts/test-targets can prove that the golden vectors notice such an operation.
  set(PLCALC_FP_CONTRACT off CACHE STRING "Contraction of a*b + c: off, or the results are wrong")
  mark_as_advanced(PLCALC_FP_CONTRACT)
  target_compile_options(plcalc_fp INTERFACE -ffp-contract=${PLCALC_FP_CONTRACT} -fno-fast-math)
  # Nobody reads errno after a square root. Without errno the root is a single instruction.
  target_compile_options(plcalc_fp INTERFACE -fno-math-errno)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86_64|AMD64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    # The x87 unit keeps more bits than a double has.
    target_compile_options(plcalc_fp INTERFACE -msse2 -mfpmath=sse)
  endif()
endif()

# A project that plcalc is a part of may leave the build type open. Compilers would then not optimise at all.
if(NOT MSVC AND NOT PLCALC_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  target_compile_options(plcalc_fp INTERFACE -O2)
endif()

add_library(plcalc_warnings INTERFACE)
if(MSVC)
  target_compile_options(plcalc_warnings INTERFACE /W4 $<$<BOOL:${PLCALC_WERROR}>:/WX>)
else()
  target_compile_options(plcalc_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${PLCALC_WERROR}>:-Werror>)
endif()

if(PLCALC_SANITIZE)
  add_compile_options(-fsanitize=${PLCALC_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${PLCALC_SANITIZE})
endif()
