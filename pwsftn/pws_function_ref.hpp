// Internal to the water-and-steam package: a non-owning reference to a
// routine handed to an iteration or to the entry routine. It holds a plain
// function of the package (found by its signature, so that the routine of
// the context form is taken, e.g. pws_a3 with its Context& first) or any
// callable, such as a lambda that carries a host's procedure.
#pragma once
#include <memory>
#include <type_traits>
#include <utility>

namespace pws {

template <class Signature>
class FunctionRef;

template <class R, class... A>
class FunctionRef<R(A...)> {
public:
    using Pointer = R (*)(A...);

    constexpr FunctionRef(Pointer fn) noexcept  // NOLINT: implicit by design
        : target_{.fn = fn}, call_([](Target t, A... a) -> R { return t.fn(std::forward<A>(a)...); }) {}

    // The callable must outlive every call through the reference (a
    // temporary handed straight to a routine lives through that call).
    template <class F>
        requires(!std::is_same_v<std::remove_cvref_t<F>, FunctionRef> && !std::is_function_v<F> &&
                 std::is_invocable_r_v<R, const F&, A...>)
    FunctionRef(const F& callable) noexcept  // NOLINT: implicit by design
        : target_{.object = std::addressof(callable)},
          call_([](Target t, A... a) -> R {
              return (*static_cast<const F*>(t.object))(std::forward<A>(a)...);
          }) {}

    R operator()(A... a) const { return call_(target_, std::forward<A>(a)...); }

private:
    union Target {
        Pointer fn;
        const void* object;
    };
    Target target_;
    R (*call_)(Target, A...);
};

}  // namespace pws
