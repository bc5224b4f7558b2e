#pragma once

namespace oz {

// A visitor made of lambdas, one per alternative of a std::variant.
template <class... Ts> struct Overloaded : Ts... {
    using Ts::operator()...;
};

// Spelled out for compilers without deduction for aggregates.
template <class... Ts> Overloaded(Ts...) -> Overloaded<Ts...>;

}  // namespace oz
