# The one flags target: every other target links it.
add_library(kvtk_flags INTERFACE)
target_compile_features(kvtk_flags INTERFACE cxx_std_20)
target_include_directories(kvtk_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(kvtk_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_CONTEXTLESS_CONNECT QT_NO_KEYWORDS
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(kvtk_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Wconversion
  -Wsign-conversion -Wold-style-cast -Wcast-qual -Wuseless-cast -Wlogical-op -Wformat=2 -Werror
  $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2 -fstack-protector-strong>)
target_link_options(kvtk_flags INTERFACE $<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
# Every test is a program of its own, and the other linker takes half the time.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold KVTK_HAS_GOLD)
if(KVTK_HAS_GOLD)
  target_link_options(kvtk_flags INTERFACE $<$<CONFIG:Debug>:-fuse-ld=gold>)
endif()
# Programs can be loaded at any address; Qt's own flags compile for that already.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
option(KVTK_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(KVTK_SANITIZE)
  target_compile_options(kvtk_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kvtk_flags INTERFACE -fsanitize=address,undefined)
endif()
