#include <cstdio>

#include "if97/if97.hpp"

namespace if97 {

namespace {
constexpr std::int32_t version_major = 1;
constexpr std::int32_t version_minor = 0;
constexpr std::int32_t version_patch = 0;
constexpr std::int32_t version_build = 1;
constexpr const char* banner = " ****** IAPWS-IF97 water and steam properties ******";
}  // namespace

void getversion(std::int32_t& major, std::int32_t& minor, std::int32_t& patch,
                std::int32_t& build) {
    major = version_major;
    minor = version_minor;
    patch = version_patch;
    build = version_build;
}

void if97_sub() { std::puts(banner); }

}  // namespace if97
