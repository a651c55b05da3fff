// Sums that tell contents apart. They are no defence against somebody who looks for two of the same sum.
#pragma once

#include <cstdint>
#include <string_view>

namespace formwizard::system {

// The same on every machine. Contents of one length that differ in one word of eight bytes only never have the same
// sum, others by chance.
std::uint64_t ContentSum(std::string_view bytes);

// FNV-1a, a byte a step: of names, and of contents in what older versions have left behind.
std::uint64_t BytewiseSum(std::string_view bytes);

}  // namespace formwizard::system
