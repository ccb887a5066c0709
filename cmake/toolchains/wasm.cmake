# WebAssembly, by Debian's emscripten; programs run under node, with the files of the machine
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-sNODERAWFS=1 -sALLOW_MEMORY_GROWTH=1")
# Since 18, node has a fetch of its own; what emscripten makes would take it for that of a browser.
set(CMAKE_CROSSCOMPILING_EMULATOR node --no-experimental-fetch)
