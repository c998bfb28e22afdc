#pragma once

/// QUILLBOX_MULTIVERSION before a function compiles it twice, for any processor and for those with AVX2, and picks one
/// when the program starts. Meant for loops over pixels that the compiler vectorises; both versions do integer
/// arithmetic only, so they give the same bytes.
#if defined(__x86_64__) && defined(__linux__) && !defined(QUILLBOX_NO_FUNCTION_MULTIVERSIONING)
#define QUILLBOX_MULTIVERSION __attribute__((target_clones("default", "avx2")))
#else
#define QUILLBOX_MULTIVERSION
#endif
