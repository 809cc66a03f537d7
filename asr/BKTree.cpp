#include "asr/BKTree.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <span>
#include <utility>

namespace vantro::asr {

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

} // namespace

std::size_t editDistance(std::u32string_view a, std::u32string_view b, std::size_t limit)
{
    if (a.size() > b.size())
        std::swap(a, b);
    if (b.size() - a.size() > limit)
        return b.size() - a.size();
    constexpr std::size_t onStack = 64;
    std::array<std::size_t, onStack + 1> small{};
    std::vector<std::size_t> large(a.size() > onStack ? a.size() + 1 : 0);
    const auto row = large.empty() ? std::span(small).first(a.size() + 1) : std::span(large);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < b.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        std::size_t least = row[0];
        for (std::size_t j = 0; j < a.size(); ++j) {
            const std::size_t replaced = diagonal + (a[j] == b[i] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
            least = std::min(least, row[j + 1]);
        }
        if (least > limit)
            return least;
    }
    return row[a.size()];
}

void BKTree::add(std::u32string word, std::size_t value)
{
    const std::size_t added = nodes_.size();
    if (added > 0) {
        for (std::size_t at = 0;;) {
            const std::size_t distance = editDistance(word, nodes_[at].word, unlimited);
            auto& children = nodes_[at].children;
            const auto child = std::ranges::find(children, distance, &std::pair<std::size_t, std::size_t>::first);
            if (child == children.end()) {
                children.emplace_back(distance, added);
                break;
            }
            at = child->second;
        }
    }
    nodes_.push_back({std::move(word), value, {}});
}

void BKTree::find(std::u32string_view word, std::size_t limit,
                  const std::function<void(std::size_t, std::size_t)>& report) const
{
    std::vector<std::size_t> pending;
    if (!nodes_.empty())
        pending.push_back(0);
    while (!pending.empty()) {
        const Node& node = nodes_[pending.back()];
        pending.pop_back();
        const std::size_t distance = editDistance(word, node.word, unlimited);
        if (distance <= limit)
            report(node.value, distance);
        // The triangle inequality: within the limit of the word lies nothing that is further from this node.
        for (const auto& [apart, child] : node.children) {
            if (apart + limit >= distance && apart <= distance + limit)
                pending.push_back(child);
        }
    }
}

} // namespace vantro::asr
