// Builds the document element by element, while expat parses. Exceptions must not pass through expat, so the first one
// stops the parser and is thrown again outside. External entities are never opened, for nobody asks expat to.
#include "svg/Reader.h"

#include <expat.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Names.h"
#include "svg/Outlines.h"
#include "svg/Values.h"

namespace easel::svg {

namespace {

using model::Document;
using model::Node;
using model::NodeType;
using model::PathData;
using model::Placement;
using model::Style;

constexpr double kDefaultWidth = 300; ///< of a drawing without any size, as in browsers
constexpr double kDefaultHeight = 150;
constexpr std::size_t kChunk = std::size_t{1} << 20;
constexpr char kNamespaceEnd = '|';

/// The attributes of one element, as expat hands them over: names and values in turn, ended by null.
class Attributes {
  public:
    explicit Attributes(const XML_Char** pairs) : pairs_(pairs) {}

    [[nodiscard]] std::optional<std::string_view> find(std::string_view name) const {
        for (const XML_Char** pair = pairs_; *pair; pair += 2) {
            if (name == pair[0]) return pair[1];
        }
        return std::nullopt;
    }
    [[nodiscard]] std::optional<std::string_view> find(std::string_view space, std::string_view name) const {
        return find(std::string(space) + kNamespaceEnd + std::string(name));
    }
    template <class Use> void forEach(Use use) const {
        for (const XML_Char** pair = pairs_; *pair; pair += 2) use(pair[0], pair[1]);
    }

  private:
    const XML_Char** pairs_;
};

/// The name of an element of SVG; empty for a foreign one. Drawings without any namespace are taken for SVG.
std::string_view svgName(std::string_view name) {
    const std::size_t end = name.find(kNamespaceEnd);
    if (end == std::string_view::npos) return name;
    return name.substr(0, end) == kSvgNamespace ? name.substr(end + 1) : std::string_view{};
}

/// What SVG starts from; it differs from what a new path gets.
Style initialStyle() {
    Style style;
    style.fill = true;
    style.stroke = false;
    style.miterLimit = 4;
    return style;
}

/// Stroke lengths under a transform that need not keep angles: scaled by the root of the area.
Style scaled(Style style, double scale) {
    style.strokeWidth *= scale;
    style.dashOffset *= scale;
    for (double& dash : style.dashes) dash *= scale;
    return style;
}

class Builder {
  public:
    void startElement(std::string_view name, const Attributes& attributes) {
        if (++elements_ > kMostElements) {
            throw std::length_error("more than " + std::to_string(kMostElements) + " elements");
        }
        if (++depth_ > kDeepestElement) {
            throw std::length_error("elements nest deeper than " + std::to_string(kDeepestElement));
        }
        if (passedOver_ > 0) {
            ++passedOver_;
            return;
        }
        const std::string_view element = svgName(name);
        if (frames_.empty()) {
            startRoot(element, attributes);
        } else if (element == "g") {
            startGroup(attributes);
        } else {
            if (isShape(element)) addShape(element, attributes);
            passedOver_ = 1;
        }
    }

    void endElement() {
        --depth_;
        if (passedOver_ > 0) {
            --passedOver_;
        } else {
            frames_.pop_back();
        }
    }

    std::unique_ptr<Document> finish() {
        document_->journal().end();
        return std::move(document_);
    }

  private:
    /// What an element passes on to those inside it.
    struct Frame {
        Style style;
        Geom::Affine transform;
        Node* container; ///< null at the root, where art may be in no layer
    };

    // Elements

    void startRoot(std::string_view element, const Attributes& attributes) {
        if (element != "svg") throw std::runtime_error("not an SVG drawing");
        const std::vector<double> viewBox = numbers(attributes.find("viewBox").value_or(""));
        const bool hasBox = viewBox.size() == 4;
        const auto size = [&](std::string_view name, double inBox, double byDefault) {
            const std::optional<std::string_view> text = attributes.find(name);
            const double value = hasBox ? inBox : text ? length(*text).value_or(byDefault) : byDefault;
            if (!(value > 0) || value > kFarthestCoordinate) {
                throw std::range_error("the drawing's " + std::string(name) + " is no usable size");
            }
            return value;
        };
        const double width = size("width", hasBox ? viewBox[2] : 0, kDefaultWidth);
        const double height = size("height", hasBox ? viewBox[3] : 0, kDefaultHeight);
        document_ = std::make_unique<Document>(width, height);
        document_->journal().begin();
        document_->journal().setKind(model::UndoKind::Silent);
        document_->setName(document_->currentLayer(), kFirstLayerTitle);
        const Geom::Affine toPage =
            hasBox ? Geom::Affine(1, 0, 0, 1, -viewBox[0], -viewBox[1]) : Geom::Affine::identity();
        frames_.push_back({styleOf(attributes, initialStyle()), transformOf(attributes, toPage), nullptr});
    }

    void startGroup(const Attributes& attributes) {
        const Frame& around = frames_.back();
        const bool isLayer = !around.container && attributes.find(kInkscapeNamespace, "groupmode") == "layer";
        Node& group = isLayer ? newLayer(attributes) : add(NodeType::Group, attributes);
        frames_.push_back({styleOf(attributes, around.style), transformOf(attributes, around.transform), &group});
    }

    void addShape(std::string_view element, const Attributes& attributes) {
        std::vector<PathData> subpaths =
            shapeOutline(element, [&](std::string_view name) { return attributes.find(name); });
        const Geom::Affine transform = transformOf(attributes, frames_.back().transform);
        const double area = std::fabs(transform.det());
        if (subpaths.empty() && element == "path") subpaths.emplace_back(); // a path without points is still one
        if (subpaths.empty() || area == 0 || !std::isfinite(area)) return;
        for (PathData& subpath : subpaths) {
            if (subpath.points.size() > kMostAnchors) return;
            transformBy(subpath, transform);
            requireInReach(subpath);
        }
        const Style style = scaled(styleOf(attributes, frames_.back().style), std::sqrt(area));
        if (subpaths.size() == 1) {
            applyOwnFeatures(subpaths.front(), attributes);
            setPath(add(NodeType::Path, attributes), std::move(subpaths.front()), style);
            return;
        }
        Node& group = add(NodeType::Group, attributes);
        for (PathData& subpath : subpaths) {
            setPath(document_->create(NodeType::Path, Placement::OnTopInside, group), std::move(subpath), style);
        }
    }

    // Parts of them

    Node& newLayer(const Attributes& attributes) {
        const std::string_view title =
            attributes.find(kInkscapeNamespace, "label").value_or(attributes.find("id").value_or(""));
        // The document came with one layer.
        Node& layer = firstLayerTaken_ ? document_->addLayer(title) : document_->currentLayer();
        firstLayerTaken_ = true;
        document_->setName(layer, title);
        setFlags(layer, attributes);
        return layer;
    }

    Node& add(NodeType type, const Attributes& attributes) {
        Node* container = frames_.back().container;
        if (!container) container = &layerOfStrayArt();
        Node& node = document_->create(type, Placement::OnTopInside, *container);
        document_->setName(node,
                           attributes.find("id").value_or(attributes.find(kInkscapeNamespace, "label").value_or("")));
        setFlags(node, attributes);
        return node;
    }

    Node& layerOfStrayArt() {
        if (!strayLayer_) {
            strayLayer_ = firstLayerTaken_ ? &document_->addLayer(kFirstLayerTitle) : &document_->currentLayer();
            firstLayerTaken_ = true;
        }
        return *strayLayer_;
    }

    void setFlags(Node& node, const Attributes& attributes) {
        bool hidden = attributes.find("display") == "none";
        forEachDeclaration(attributes.find("style").value_or(""), [&](std::string_view name, std::string_view value) {
            if (name == "display") hidden = value == "none";
        });
        document_->setHidden(node, hidden);
        document_->setLocked(node, attributes.find(kSodipodiNamespace, "insensitive") == "true");
    }

    void setPath(Node& path, PathData data, const Style& style) {
        document_->setPath(path, std::move(data));
        document_->setStyle(path, style);
    }

    static Style styleOf(const Attributes& attributes, Style style) {
        attributes.forEach(
            [&](std::string_view name, std::string_view value) { applyProperty(style, name, trimmed(value)); });
        forEachDeclaration(attributes.find("style").value_or(""),
                           [&](std::string_view name, std::string_view value) { applyProperty(style, name, value); });
        return style;
    }

    static Geom::Affine transformOf(const Attributes& attributes, const Geom::Affine& around) {
        return transform(attributes.find("transform").value_or("")).value_or(Geom::Affine::identity()) * around;
    }

    /// What SVG has no place for, and the writer puts into attributes of its own or its neighbours.
    static void applyOwnFeatures(PathData& path, const Attributes& attributes) {
        std::vector<model::PathPoint>& points = path.points;
        const std::string_view types = attributes.find(kSodipodiNamespace, "nodetypes").value_or("");
        for (std::size_t i = 0; i < std::min(types.size(), points.size()); ++i) points[i].corner = types[i] == 'c';
        const std::vector<double> ends = numbers(attributes.find(kEaselNamespace, "ends").value_or(""));
        if (ends.size() != 4 || points.empty()) return;
        points.front().in = {ends[0], ends[1]};
        points.back().out = {ends[2], ends[3]};
        requireInReach(path);
    }

    static void requireInReach(const PathData& path) {
        const model::Box hull = path.hull();
        const bool inReach = hull.left >= -kFarthestCoordinate && hull.top >= -kFarthestCoordinate &&
                             hull.right <= kFarthestCoordinate && hull.bottom <= kFarthestCoordinate;
        if (!path.points.empty() && !inReach) throw std::range_error("a coordinate lies beyond 1e9 points");
    }

    std::unique_ptr<Document> document_;
    std::vector<Frame> frames_;
    std::size_t elements_ = 0;
    std::size_t depth_ = 0;
    std::size_t passedOver_ = 0; ///< open elements that are not read, nor anything in them
    bool firstLayerTaken_ = false;
    Node* strayLayer_ = nullptr;
};

/// One run of expat over the bytes.
class Reading {
  public:
    explicit Reading(const std::string& fileName)
        : fileName_(fileName), parser_(XML_ParserCreateNS(nullptr, kNamespaceEnd)) {
        if (!parser_) throw std::bad_alloc();
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), start, end);
    }

    std::unique_ptr<Document> run(std::string_view bytes) {
        bool last = false;
        while (!last) {
            const std::size_t size = std::min(bytes.size(), kChunk);
            last = size == bytes.size();
            if (XML_Parse(parser_.get(), bytes.data(), static_cast<int>(size), last) != XML_STATUS_OK) fail();
            bytes.remove_prefix(size);
        }
        return builder_.finish();
    }

  private:
    struct FreeParser {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    template <class Work> static void guarded(void* data, Work work) {
        Reading& self = *static_cast<Reading*>(data);
        if (self.error_) return; // expat may still report what it has already seen
        try {
            work(self.builder_);
        } catch (...) {
            self.error_ = std::current_exception();
            self.place_ = self.currentPlace(); // stopping moves on
            XML_StopParser(self.parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL start(void* data, const XML_Char* name, const XML_Char** attributes) {
        guarded(data, [&](Builder& builder) { builder.startElement(name, Attributes(attributes)); });
    }
    static void XMLCALL end(void* data, const XML_Char*) {
        guarded(data, [](Builder& builder) { builder.endElement(); });
    }

    [[nodiscard]] std::string currentPlace() const {
        return fileName_ + ':' + std::to_string(XML_GetCurrentLineNumber(parser_.get())) + ':' +
               std::to_string(XML_GetCurrentColumnNumber(parser_.get()) + 1) + ": ";
    }

    [[noreturn]] void fail() const {
        if (!error_) throw FileError(currentPlace() + XML_ErrorString(XML_GetErrorCode(parser_.get())));
        try {
            std::rethrow_exception(error_);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& error) {
            throw FileError(place_ + error.what());
        }
    }

    const std::string& fileName_;
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    Builder builder_;
    std::exception_ptr error_;
    std::string place_;
};

} // namespace

std::unique_ptr<Document> open(const std::string& path) { return read(readFile(path), path); }

std::unique_ptr<Document> read(std::string_view bytes, const std::string& fileName) {
    return Reading(fileName).run(bytes);
}

} // namespace easel::svg
