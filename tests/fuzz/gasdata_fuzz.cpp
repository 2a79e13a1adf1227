// The gas data file and the fluid database record through the loaders, with
// the table then used by mixture requests. Where the text holds whole blocks
// that fit a record, both sources must give the same table.
//
// Input: one byte choosing the source (even: file, odd: database record),
// then the text of the gas data.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"
#include "ondrel/ondrel_core.hpp"
#include "tests/fuzz/fuzz_input.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_transport.hpp"

namespace {

namespace fd = od::fluiddata;

constexpr std::size_t record_lines = 255;
constexpr std::size_t record_width = 255;
constexpr int record_components = 63;  // (255 - 1) / 4

// The lines of the text as the file loader reads them (a CR before the LF
// dropped; a last line without LF still a line).
std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) end = text.size();
        std::string line(text.substr(start, end - start));
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

// An in-memory file with a path, rewritten for every input.
class MemoryFile {
public:
    MemoryFile() : fd_(memfd_create("ondrel-gas-data", 0)), path_("/proc/self/fd/" + std::to_string(fd_)) {}
    const std::string& write(std::string_view text) {
        fuzz::check(fd_ >= 0 && ftruncate(fd_, 0) == 0, "memory file");
        fuzz::check(pwrite(fd_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()), "memory file write");
        return path_;
    }

private:
    int fd_;
    std::string path_;
};

void forget_everything() {
    fd::reset_for_tests();
    od::ondrel::reset_for_tests();
    od::h2o::reset_for_tests();
    od::transport::reset_for_tests();
}

void load_file(std::string_view text) {
    static MemoryFile file;
    forget_everything();
    fd::readgasfile(file.write(text));
    fd::setdbread();
}

void load_record(const std::vector<std::string>& lines) {
    forget_everything();
    od::host::set_hooks({}, [&](std::string_view, std::string_view) {
        od::host::FluidRecord r;
        for (std::size_t k = 0; k < lines.size() && k < record_lines; ++k)
            r.lines.push_back(lines[k].substr(0, record_width));
        r.status = 1;
        return r;
    });
    fd::readgasdb("/fuzz/", fd::data_file_name);
    od::host::set_hooks({}, {});
    fd::setdbread();
}

bool same_row(const fd::TableRow& a, const fd::TableRow& b) {
    return a.name.text == b.name.text && a.namato == b.namato && a.numato == b.numato && a.tmin == b.tmin &&
           a.tmax == b.tmax && a.mmol == b.mmol && a.coef == b.coef && a.sigma == b.sigma && a.eps == b.eps;
}

void check_table(int limit) {
    const int n = fd::table_size();
    fuzz::check(n >= 0 && n <= limit, "table size");
    for (int i = 1; i <= n; ++i) {
        const fd::TableRow& r = fd::table_row(i);
        bool finite = std::isfinite(r.tmin) && std::isfinite(r.tmax) && std::isfinite(r.mmol) &&
                      std::isfinite(r.sigma) && std::isfinite(r.eps);
        for (const auto& range : r.coef)
            for (double a : range) finite = finite && std::isfinite(a);
        fuzz::check(finite, "a loaded number is not finite");
    }
}

// Requests on the first components of the table (and "H2O(IF)" when it is one).
void use_table() {
    std::vector<od::CompName> names;
    for (int i = 1; i <= fd::table_size() && names.size() < 4; ++i) names.push_back(fd::table_row(i).name);
    const od::CompName water = od::h2o::water_if;
    if (fd::iscomp(water)) names.push_back(water);
    const std::vector<double> conc(names.size(), 1.0 / static_cast<double>(std::max<std::size_t>(names.size(), 1)));
    const int n = static_cast<int>(names.size());
    int err = 0;
    const double h = od::ondrel::od_prop("PT", 1.01325, 300.0, n, names, conc, "h", err);
    fuzz::check(err == 0 || err == 1, "PT gives code 0 or 1");
    fuzz::check(err == 0 || h == od::missing_value, "code 1 without the marker");
    (void)od::ondrel::od_allprops("PT", 50.0, 20.0, n, names, conc, err);
    for (const char* spec : {"Ph", "Ts", "vu"}) {
        const double t = od::ondrel::od_prop(spec, 10.0, 500.0, n, names, conc, "T", err);
        fuzz::check(err != 0 || !std::isnan(t) || names.empty(), "a solved temperature is NaN with code 0");
    }
    (void)od::ondrel::od_info(n, names, conc, "T_max", err);
    std::array<od::CompName, od::max_components> set;
    fuzz::check(od::ondrel::od_compset(set) == fd::table_size(), "compset count");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const bool database = data[0] % 2 == 1;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::vector<std::string> lines = lines_of(text);

    // Whole blocks within a record: the two loaders must agree.
    const bool comparable = lines.size() <= record_lines && (lines.empty() || (lines.size() - 1) % 4 == 0);
    std::vector<fd::TableRow> from_file;
    if (comparable || !database) {
        load_file(text);
        check_table(od::max_components);
        for (int i = 1; i <= od::max_components; ++i) from_file.push_back(fd::table_row(i));
    }
    if (comparable || database) {
        load_record(lines);
        check_table(record_components);
        if (comparable) {
            for (int i = 1; i <= od::max_components; ++i)
                fuzz::check(same_row(fd::table_row(i), from_file[static_cast<std::size_t>(i - 1)]),
                            "the file and the record give different tables");
        }
    }
    use_table();
    return 0;
}
