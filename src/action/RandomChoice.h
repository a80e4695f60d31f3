#pragma once

#include <QString>
#include <cstdint>
#include <random>

namespace mervak {

// The random pick of {|TRIA [a#b#c]} (Spanish {|ESCOGE}). The brackets are
// optional and each choice is trimmed of blanks.
// - A list of exactly two choices whose first one is a number is a range: a
//   whole number from one bound to the other, both included, in either order
//   ("[1#6]" throws a die). Bounds are read with Val and rounded half to even;
//   one beyond 32 bits throws Overflow16.
// - Any other list gives one of its choices, each equally likely.
// The same seed always gives the same sequence, on every platform.
class RandomChoice {
public:
    explicit RandomChoice(std::uint64_t seed = 0) : generator_(seed) {}

    void seed(std::uint64_t seed) { generator_.seed(seed); }

    QString choose(const QString& list);

private:
    // A number in 0..count-1, every one equally likely; count is at least 1.
    std::uint64_t below(std::uint64_t count);

    std::mt19937_64 generator_;
};

} // namespace mervak
