/* The IF97 C interface called from C. */
#include "if97_c_calls.h"

const struct c_pair c_pairs[] = {
    {"pT", ondrel_if97_from_pT}, {"ph", ondrel_if97_from_ph}, {"ps", ondrel_if97_from_ps},
    {"pu", ondrel_if97_from_pu}, {"pv", ondrel_if97_from_pv}, {"px", ondrel_if97_from_px},
    {"Th", ondrel_if97_from_Th}, {"Ts", ondrel_if97_from_Ts}, {"Tv", ondrel_if97_from_Tv},
    {"Tx", ondrel_if97_from_Tx}, {"vh", ondrel_if97_from_vh}, {"vs", ondrel_if97_from_vs},
    {"vu", ondrel_if97_from_vu}, {"hs", ondrel_if97_from_hs},
};
const size_t c_pair_count = sizeof c_pairs / sizeof c_pairs[0];

const struct c_single c_singles[] = {
    {"v", ondrel_if97_v_pT}, {"h", ondrel_if97_h_pT}, {"u", ondrel_if97_u_pT},
    {"s", ondrel_if97_s_pT}, {"cp", ondrel_if97_cp_pT},
};
const size_t c_single_count = sizeof c_singles / sizeof c_singles[0];

int c_transport_pT(double p, double T, double* eta, double* lambda, int* region) {
    ondrel_if97_state st;
    int rc = ondrel_if97_from_pT(p, T, &st);
    if (rc != ONDREL_OK) return rc;
    *region = st.region;
    rc = ondrel_if97_viscosity(&st, eta);
    if (rc != ONDREL_OK) return rc;
    return ondrel_if97_conductivity(&st, lambda);
}
