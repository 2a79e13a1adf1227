/*
 * Visibility of the library's interface. The libraries are built with hidden
 * visibility; every routine of the documented interface is marked ONDREL_API
 * so that it alone is exported.
 */
#ifndef ONDREL_EXPORT_H
#define ONDREL_EXPORT_H

#if defined(__GNUC__) || defined(__clang__)
#define ONDREL_API __attribute__((visibility("default")))
#else
#define ONDREL_API
#endif

#endif /* ONDREL_EXPORT_H */
