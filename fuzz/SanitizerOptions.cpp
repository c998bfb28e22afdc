// What AddressSanitizer notes of every allocation took a third of the fuzzers' time; a finding is run again with more:
// ASAN_OPTIONS=malloc_context_size=30. A sixth was taken by pages for what it knows of large buffers, which it gave
// back and asked for again each time.
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "malloc_context_size=1:quarantine_size_mb=8:clear_shadow_mmap_threshold=1000000000";
}
