# The module against the host's own SDK, with MSVC. Prepared and not verified: neither the SDK nor
# MSVC was at hand. What drafthost is to the cross-build, this target is here.
add_library(host_interface INTERFACE)
target_include_directories(host_interface SYSTEM INTERFACE "${HOST_SDK_ROOT}/inc")
target_link_directories(host_interface INTERFACE "${HOST_SDK_ROOT}/lib-x64")
target_link_libraries(host_interface INTERFACE
  rxapi acdb17 acge17 acad adui17 acui17 acedapi)
target_compile_definitions(host_interface INTERFACE _AFXDLL _AFXEXT)
set(CMAKE_MFC_FLAG 2)
# The framework refuses to come behind windows.h, which our headers include where they need it.
target_compile_options(host_interface INTERFACE $<$<COMPILE_LANGUAGE:CXX>:/FIafxwin.h>)
