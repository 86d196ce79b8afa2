# Everything of ours is built with these; errors in CI only.
add_library(vsk_warnings INTERFACE)
target_compile_options(vsk_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wcast-qual
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual>
  $<$<BOOL:${VSK_WERROR}>:-Werror>)

if(VSK_SANITIZE)
  add_compile_options(-fsanitize=${VSK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VSK_SANITIZE})
endif()

# What the fuzzers look at is instrumented, and whatever is not checked otherwise ends the process.
if(VSK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
