# The compiler's shared runtime DLLs, stripped, beside the programs: host, module and tests share
# one C++ runtime, as in the real host.
find_program(MINGW_STRIP x86_64-w64-mingw32-strip REQUIRED)
set(runtime_dlls "")
foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
    OUTPUT_VARIABLE source OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(copy "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name}")
  add_custom_command(OUTPUT "${copy}" COMMAND ${MINGW_STRIP} -o "${copy}" "${source}"
    DEPENDS "${source}" COMMENT "Stripping ${name}")
  list(APPEND runtime_dlls "${copy}")
endforeach()
add_custom_target(runtime_dlls ALL DEPENDS ${runtime_dlls})
