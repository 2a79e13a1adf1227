// Text arguments of the host calling convention: fixed-width, blank-padded
// character buffers whose length travels as a trailing hidden size_t.
// Conversions happen here, once, at the exported edge.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace ftn {

// The caller's text as a view. A NUL byte ends the text early, so that C
// callers may pass NUL-terminated strings with a generous length.
inline std::string_view view(const char* text, std::size_t len) {
    if (text == nullptr) return {};
    const void* nul = std::memchr(text, '\0', len);
    if (nul != nullptr) len = static_cast<std::size_t>(static_cast<const char*>(nul) - text);
    return {text, len};
}

// The view with trailing blanks removed.
inline std::string_view trim(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && s[n - 1] == ' ') --n;
    return s.substr(0, n);
}

inline std::string_view trimmed(const char* text, std::size_t len) { return trim(view(text, len)); }

// Copies src into the caller's buffer of width len, cut or blank-padded.
inline void store(char* dst, std::size_t len, std::string_view src) {
    if (dst == nullptr) return;
    const std::size_t n = std::min(len, src.size());
    if (n > 0) std::memcpy(dst, src.data(), n);
    std::memset(dst + n, ' ', len - n);
}

}  // namespace ftn
