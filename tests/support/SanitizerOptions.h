#pragma once

#ifdef __SANITIZE_ADDRESS__
/** What libraries lose that aren't ours, once in a process. */
extern "C" inline __attribute__((used)) const char *__lsan_default_suppressions()
{
    // The text of an error, where there is no session bus.
    return "leak:libdbus-1.so\n";
}
#endif

#ifdef __SANITIZE_THREAD__
/**
 * Qt isn't built for the thread sanitizer, which therefore doesn't see its locks, and would take every block
 * of memory that two of Qt's own threads pass on for a race. Our own code is watched in full.
 */
extern "C" inline __attribute__((used)) const char *__tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}
#endif
