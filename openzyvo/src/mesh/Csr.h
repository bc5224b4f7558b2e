#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// Compressed rows: row i holds items[offsets[i] .. offsets[i + 1]). One allocation per table
// instead of one per row keeps walks over 100k+ rows cache friendly.
struct Csr {
    std::vector<int32_t> offsets{0};
    std::vector<int32_t> items;

    int32_t rowCount() const { return static_cast<int32_t>(offsets.size()) - 1; }

    std::span<const int32_t> operator[](int32_t row) const {
        if (row < 0 || row >= rowCount())
            return {};
        return std::span<const int32_t>(items).subspan(offsets[row], offsets[row + 1] - offsets[row]);
    }
};

} // namespace oz::mesh
