# The one flags target: every other target links it.
add_library(kvtk_flags INTERFACE)
target_compile_features(kvtk_flags INTERFACE cxx_std_20)
target_include_directories(kvtk_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(kvtk_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_CONTEXTLESS_CONNECT QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(kvtk_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Werror)
option(KVTK_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(KVTK_SANITIZE)
  target_compile_options(kvtk_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(kvtk_flags INTERFACE -fsanitize=address,undefined)
endif()
