#pragma once

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
