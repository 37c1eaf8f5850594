// Styles by value: paths that look alike share one. Private to this folder.
#pragma once

#include <unordered_set>

#include "model/Shared.h"
#include "model/Types.h"

namespace easel::model {

class StylePool {
  public:
    Shared<Style> get(const Style& style);

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const Style& style) const;
        std::size_t operator()(const Shared<Style>& style) const { return (*this)(*style); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const Shared<Style>& a, const Shared<Style>& b) const { return a == b; }
        bool operator()(const Style& a, const Shared<Style>& b) const { return a == *b; }
        bool operator()(const Shared<Style>& a, const Style& b) const { return *a == b; }
    };

    std::unordered_set<Shared<Style>, Hash, Equal> styles_;
    std::size_t lookAgainAt_ = 64; // when there are as many, those that nobody shares are dropped
};

} // namespace easel::model
