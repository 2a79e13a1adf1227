// A mixture whose components' gas-table rows have been found: what the state
// functions read. Built once per mixture by the modern API, or per request
// from the stored composition by the exported routines.
#pragma once
#include <array>
#include <cstddef>
#include <type_traits>
#include <span>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"
#include "thermo/od_h2o.hpp"

namespace od {

// One component: name, concentration (mole fraction, used as given), its
// gas-table row (nullptr where the getters answer -8888.8), its phase ('G',
// 'S' or 'L', from the name) and whether it is the condensing water.
struct Component {
    CompName name;
    double conc;
    const fluiddata::TableRow* row;
    char phase;
    bool water_if;
};

static_assert(std::is_trivially_destructible_v<Component>);

struct MixtureRows {
    std::span<const Component> comps;
    h2o::WaterRows water;  // rows of "H2O" and "H2O(L)" for the condensing water
    int n() const { return static_cast<int>(comps.size()); }
};

// The component as the exported routines see it: its row through the stored composition.
Component stored_component(const CompName& name, double conc);

// The rows of a mixture through the stored composition, as the getters of
// od_fluiddata find them (a name that is not stored has no row).
class StoredRows {
public:
    explicit StoredRows(const Mixture& mix);
    StoredRows(const StoredRows&) = delete;
    StoredRows& operator=(const StoredRows&) = delete;
    const MixtureRows& rows() const { return rows_; }
    operator const MixtureRows&() const { return rows_; }  // NOLINT: a view of the same mixture

private:
    // Raw room for 250 components: only the first n are constructed, so that
    // a request pays for its own components, not for the capacity.
    alignas(Component) std::byte buf_[sizeof(Component) * max_components];
    MixtureRows rows_;
};

}  // namespace od
