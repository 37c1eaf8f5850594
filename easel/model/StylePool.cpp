// Hashes what tells styles apart most often.
#include "model/StylePool.h"

#include <boost/container_hash/hash.hpp>

#include <algorithm>

namespace easel::model {

std::size_t StylePool::Hash::operator()(const Style& style) const {
    std::size_t hash = 0;
    for (const Color& color : {style.fillColor, style.strokeColor})
        for (const double part : {color.red, color.green, color.blue}) boost::hash_combine(hash, part);
    boost::hash_combine(hash, style.strokeWidth);
    boost::hash_combine(hash, style.fill);
    boost::hash_combine(hash, style.stroke);
    boost::hash_combine(hash, style.dashes().lengths[0]);
    return hash;
}

Shared<Style> StylePool::get(const Style& style) {
    constexpr std::size_t kMany = 1 << 14;
    if (const auto found = styles_.find(style); found != styles_.end()) return *found;
    if (styles_.size() >= lookAgainAt_) {
        // Where there are very many, one that only one path has had so far hardly ever gets another.
        const std::size_t few = styles_.size() >= kMany ? 2 : 1; // this pool is one of them
        std::erase_if(styles_, [&](const Shared<Style>& known) { return known.ownerCount() <= few; });
        lookAgainAt_ = std::max(lookAgainAt_, 2 * styles_.size());
    }
    return *styles_.emplace(style).first;
}

} // namespace easel::model
