// What AddressSanitizer notes of every allocation took a third of the fuzzers' time; a finding is run again with more:
// ASAN_OPTIONS=malloc_context_size=30.
extern "C" const char* __asan_default_options() // NOLINT(bugprone-reserved-identifier): the sanitizer's name
{
    return "malloc_context_size=2:quarantine_size_mb=8";
}
