// Internal to the water-and-steam package: the halving step shared by the
// regula falsi iterations (pws_i1, pws_i2, pws_i3, pws_it, pws_id and the
// outer iteration of the inverse routines).
#pragma once

namespace pws::detail {

// Narrows [a, b] after the trial x with residual fx: the part between x and
// the end that `brackets` pairs with it is halved at m = (x + end) / 2, with
// one evaluation f(m), and [a, b] becomes the half that keeps the root.
// `brackets(u, v)` tells whether residuals u and v enclose a root; the
// iterations differ only in how it compares u v with zero, and so in how a
// zero or NaN residual is taken.
template <typename Brackets, typename F>
void halve(double& a, double& fa, double& b, double& fb, double x, double fx, Brackets brackets,
           F&& f) {
    const auto towards = [&](double& near, double& f_near, double& far, double& f_far) {
        const double m = (x + near) * 0.5;
        const double fm = f(m);
        if (brackets(f_near, fm)) {
            far = m;
            f_far = fm;
        } else {
            near = m;
            f_near = fm;
            far = x;
            f_far = fx;
        }
    };
    if (brackets(fa, fx))
        towards(a, fa, b, fb);
    else
        towards(b, fb, a, fa);
}

}  // namespace pws::detail
