# kvt_precompile(TARGET): the headers that nearly every source includes are compiled once for all of
# drafthost and the module. Not against the host's SDK, whose framework has to come ahead of them.
if(NOT HOST_SDK_ROOT)
  add_library(kvt_precompiled OBJECT "${CMAKE_CURRENT_LIST_DIR}/precompiled.cpp")
  target_link_libraries(kvt_precompiled PRIVATE kvt_options)
  target_precompile_headers(kvt_precompiled PRIVATE
    <windows.h> <algorithm> <cstdint> <functional> <map> <memory> <optional> <string> <vector>)
endif()

function(kvt_precompile target)
  if(TARGET kvt_precompiled)
    target_precompile_headers(${target} REUSE_FROM kvt_precompiled)
  endif()
endfunction()
