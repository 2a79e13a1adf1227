#include "thermo/od_mixture.hpp"

#include <algorithm>
#include <new>

namespace od {

Component stored_component(const CompName& name, double conc) {
    return {name, conc, fluiddata::stored_table_row(name), fluiddata::getphase(name), name == h2o::water_if};
}

StoredRows::StoredRows(const Mixture& mix) {
    const std::size_t n = std::min<std::size_t>(mix.names.size(), max_components);
    Component* c = reinterpret_cast<Component*>(buf_);
    for (std::size_t i = 0; i < n; ++i) new (c + i) Component(stored_component(mix.names[i], mix.conc[i]));
    rows_ = MixtureRows{std::span<const Component>(std::launder(c), n), h2o::stored_water_rows()};
}

}  // namespace od
