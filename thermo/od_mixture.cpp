#include "thermo/od_mixture.hpp"

#include <algorithm>

namespace od {

Component stored_component(const CompName& name, double conc) {
    return {name, conc, fluiddata::stored_table_row(name), fluiddata::getphase(name), name == h2o::water_if};
}

StoredRows::StoredRows(const Mixture& mix) {
    const std::size_t n = std::min<std::size_t>(mix.names.size(), buf_.size());
    for (std::size_t i = 0; i < n; ++i) buf_[i] = stored_component(mix.names[i], mix.conc[i]);
    rows_ = MixtureRows{std::span<const Component>(buf_.data(), n), h2o::stored_water_rows()};
}

}  // namespace od
