#include "report/writers/ColumnWidths.h"

#include <algorithm>
#include <numeric>

namespace
{
std::vector<double> noWiderThan(double most, const std::vector<ColumnNeed> &needs)
{
    std::vector<double> widths;
    widths.reserve(needs.size());
    for (const ColumnNeed &need : needs)
        widths.push_back(std::max(need.least, std::min(need.whole, most)));
    return widths;
}

double total(const std::vector<double> &widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }
} // namespace

std::optional<std::vector<double>> columnWidths(const std::vector<ColumnNeed> &needs, double room)
{
    if (total(noWiderThan(0, needs)) > room) return std::nullopt;
    std::vector<double> steps{0};
    for (const ColumnNeed &need : needs)
        steps.insert(steps.end(), {need.least, need.whole});
    std::sort(steps.begin(), steps.end());

    // Between two steps the total grows evenly.
    double most = steps.back();
    for (std::size_t i = 1; i < steps.size(); ++i) {
        const double before = total(noWiderThan(steps[i - 1], needs));
        const double behind = total(noWiderThan(steps[i], needs));
        if (behind <= room) continue;
        most = steps[i - 1] + (steps[i] - steps[i - 1]) * (room - before) / (behind - before);
        break;
    }
    return noWiderThan(most, needs);
}
