# Everything of ours is built with these; errors in CI only.
add_library(vsk_warnings INTERFACE)
target_compile_options(vsk_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  # What a conversion loses: digits, a sign, const, alignment. Or gains unseen: digits.
  -Wconversion -Wsign-conversion -Wcast-qual -Wcast-align -Wdouble-promotion
  # A format that is no literal, a macro that nobody defined, an array of any length.
  -Wformat=2 -Wundef -Wvla
  # Heirs and copies that do something else than it seems; casts and a 0 that can mean anything.
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wsuggest-override
    -Wdeprecated-copy-dtor -Wold-style-cast -Wzero-as-null-pointer-constant -Wextra-semi>
  # f() is a function of any arguments in C.
  $<$<COMPILE_LANGUAGE:C>:-Wstrict-prototypes -Wmissing-prototypes>
  $<$<BOOL:${VSK_WERROR}>:-Werror>)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(vsk_warnings INTERFACE
    # A line that was copied and not changed; what no header declares and no other file may see.
    -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wmissing-declarations
    # Where the processor at hand doesn't mind, another one does.
    -Wcast-align=strict
    # The same source makes the same program.
    -Wdate-time)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND VSK_WERROR)
  # All that clang knows, but only where errors are wanted: each version knows more than the last.
  target_compile_options(vsk_warnings INTERFACE -Weverything
    -Wno-c++98-compat-pedantic        # nor with C++14: this is C++17
    -Wno-declaration-after-statement  # C99
    -Wno-disabled-macro-expansion     # macros of the C library
    -Wno-exit-time-destructors        # constant texts and tables are static objects
    -Wno-float-equal                  # equal means equal; what is 0 may be compared with it
    -Wno-global-constructors          # as above; and each test registers itself
    -Wno-missing-noreturn             # operations that are refused today
    -Wno-padded                       # fields stand in the order that explains them
    -Wno-switch-enum                  # default is for all the others
    -Wno-undefined-func-template      # a .cpp file makes its template for all types there are
    -Wno-used-but-marked-unused       # macros of GoogleTest
    -Wno-weak-vtables)                # small classes stand whole in a header
endif()

if(VSK_SANITIZE)
  add_compile_options(-fsanitize=${VSK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VSK_SANITIZE})
endif()

# What the fuzzers look at is instrumented, and whatever is not checked otherwise ends the process.
if(VSK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
