// Collects the clip paths of a drawing while it is read, and what they are put on; either may come first. A clip path
// that is not understood (with text or references in it) hides nothing.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/Clip.h"
#include "model/Node.h"
#include "svg/Attributes.h"

namespace easel::svg {

class ClipPaths {
  public:
    // To be called for every element, whether it becomes art or not
    /// `units`: of the nearest container that is read.
    void startElement(std::string_view element, const Attributes& attributes, const Units& units);
    void endElement();

    /// Notes what is put on a node, if anything; `toPage` leads from its units to the document's.
    void putOn(model::Node& node, const Attributes& attributes, const model::Affine& toPage);
    /// Gives the nodes that were noted their masks. Once, at the end.
    void finish();

  private:
    struct Use {
        model::Node* node;
        std::string id;
        model::Affine toPage;
    };

    void addShape(std::string_view element, const Attributes& attributes, const Units& units);

    struct ClipPath {
        std::shared_ptr<const model::Mask> mask; ///< null: not understood
        bool inBox = false;                      ///< in units of the box of what it is put on
    };
    /// The clip, as far as it can be placed.
    [[nodiscard]] static std::optional<model::Clip> clipFor(const Use& use, const ClipPath& path);

    std::map<std::string, ClipPath, std::less<>> clipPaths_;
    std::vector<Use> uses_;

    // The clip path that is being read
    std::size_t depth_ = 0; // of elements in it, itself included; 0 outside
    std::string id_;
    model::Affine transform_;
    bool evenOdd_ = false;
    bool understood_ = true;
    bool inBox_ = false;
    std::vector<model::Mask::Shape> shapes_;
};

} // namespace easel::svg
