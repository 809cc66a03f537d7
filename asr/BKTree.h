#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantro::asr {

/// The number of letters to insert, remove or replace (Levenshtein), or anything above @p limit if it is more than
/// that.
std::size_t editDistance(std::u32string_view a, std::u32string_view b, std::size_t limit);

/// Words by their edit distance from each other (Burkhard and Keller, 1973): finds those near a given one without
/// looking at most of the others. Immutable after it is filled; any thread.
class BKTree
{
public:
    /// @p value: what find() reports.
    void add(std::u32string word, std::size_t value);
    void find(std::u32string_view word, std::size_t limit,
              const std::function<void(std::size_t value, std::size_t distance)>& report) const;

private:
    struct Node
    {
        std::u32string word;
        std::size_t value = 0;
        std::vector<std::pair<std::size_t, std::size_t>> children; ///< distance from this word, index
    };

    std::vector<Node> nodes_;
};

} // namespace vantro::asr
