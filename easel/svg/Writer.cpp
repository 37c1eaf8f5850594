// One line an element, attributes only where they differ from what SVG assumes, numbers as short as they can be without
// changing.
#include "svg/Writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <unordered_set>

#include "svg/Files.h"
#include "svg/Limits.h"
#include "svg/Names.h"
#include "svg/Outlines.h"

namespace easel::svg {

namespace {

using model::Node;
using model::NodeType;
using model::PathData;
using model::PathPoint;
using model::Point;
using model::Style;

void append(std::string& out, double value) {
    char digits[32];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    out.append(digits, end);
}

void append(std::string& out, Point point) {
    append(out, point.x);
    out += ' ';
    append(out, point.y);
}

void appendEscaped(std::string& out, std::string_view text) {
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\t': out += "&#9;"; break; // a plain one would be read as a space
        case '\n': out += "&#10;"; break;
        case '\r': out += "&#13;"; break;
        default:
            if (static_cast<unsigned char>(c) >= ' ') out += c; // XML has no way to say the others
        }
    }
}

void appendColor(std::string& out, const model::Color& color) {
    const double channels[] = {color.red, color.green, color.blue};
    const auto isByte = [](double channel) { return std::round(channel * 255) / 255 == channel; };
    if (std::all_of(std::begin(channels), std::end(channels), isByte)) {
        out += '#';
        for (const double channel : channels) {
            const int byte = static_cast<int>(std::round(channel * 255));
            out += "0123456789abcdef"[byte / 16];
            out += "0123456789abcdef"[byte % 16];
        }
        return;
    }
    out += "rgb(";
    for (const double channel : channels) {
        append(out, channel * 100);
        out += &channel == &channels[2] ? "%)" : "%,";
    }
}

void appendSegment(std::string& out, const PathPoint& start, const PathPoint& end) {
    const bool straight = start.out == start.anchor && end.in == end.anchor;
    out += straight ? " L" : " C";
    if (!straight) {
        append(out, start.out);
        out += ' ';
        append(out, end.in);
        out += ' ';
    }
    append(out, end.anchor);
}

std::string pathData(const PathData& path) {
    std::string out;
    if (path.points.empty()) return out;
    const PathPoint& first = path.points.front();
    const PathPoint& last = path.points.back();
    out += 'M';
    append(out, first.anchor);
    for (std::size_t i = 1; i < path.points.size(); ++i) appendSegment(out, path.points[i - 1], path.points[i]);
    if (!path.closed) return out;
    // A straight way back goes without saying, unless it has no length: then "Z" alone would join the two anchors.
    const bool straight = last.out == last.anchor && first.in == first.anchor;
    if (path.points.size() > 1 && (!straight || last.anchor == first.anchor)) appendSegment(out, last, first);
    return out += " Z";
}

/// Names can be ids when XML takes them for such and no other node has the same.
bool canBeId(std::string_view name) {
    const auto startsName = [](unsigned char c) {
        return c == '_' || c >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    };
    const auto inName = [&](unsigned char c) {
        return startsName(c) || c == '-' || c == '.' || (c >= '0' && c <= '9');
    };
    return !name.empty() && startsName(static_cast<unsigned char>(name.front())) &&
           std::all_of(name.begin(), name.end(), inName);
}

class Writing {
  public:
    std::string run(model::Document& document) {
        out_ += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg";
        attribute("xmlns", kSvgNamespace);
        attribute("xmlns:inkscape", kInkscapeNamespace);
        attribute("xmlns:sodipodi", kSodipodiNamespace);
        attribute("xmlns:easel", kEaselNamespace);
        out_ += " width=\"";
        append(out_, document.width());
        out_ += "pt\" height=\"";
        append(out_, document.height());
        out_ += "pt\" viewBox=\"0 0 ";
        append(out_, Point{document.width(), document.height()});
        out_ += "\">\n";
        writeChildren(document.root());
        return std::move(out_ += "</svg>\n");
    }

  private:
    /// Writes all below the root; later elements of SVG lie above, so the bottommost comes first.
    void writeChildren(const Node& root) {
        const Node* node = root.lastChild();
        while (node) {
            open(*node);
            if (const Node* const child = node->lastChild()) {
                node = child;
                continue;
            }
            while (node && !node->previous()) {
                node = node->parent() == &root ? nullptr : node->parent();
                if (node) close();
            }
            if (node) node = node->previous();
        }
    }

    void open(const Node& node) {
        indent();
        out_ += node.isContainer() ? "<g" : "<path";
        if (node.type() == NodeType::Layer) {
            attribute("inkscape:groupmode", "layer");
            attribute("inkscape:label", node.name());
        } else if (canBeId(node.name()) && ids_.insert(node.name()).second) {
            attribute("id", node.name());
        } else if (!node.name().empty()) {
            attribute("inkscape:label", node.name());
        }
        if (node.hidden()) attribute("style", "display:none");
        if (node.locked()) attribute("sodipodi:insensitive", "true");
        if (node.type() == NodeType::Path) {
            attribute("d", pathData(node.path()));
            writeOwnFeatures(node.path());
            writeStyle(node.style());
        }
        const bool holds = node.firstChild() != nullptr;
        out_ += holds ? ">\n" : "/>\n";
        if (holds) ++depth_;
    }

    void close() {
        --depth_;
        indent();
        out_ += "</g>\n";
    }

    /// Whether points are corners where their handles do not tell, and the handles outside the ends of an open path.
    void writeOwnFeatures(const PathData& path) {
        const auto unexpected = [](const PathPoint& point) { return point.corner == looksSmooth(point); };
        if (std::any_of(path.points.begin(), path.points.end(), unexpected)) {
            std::string types;
            for (const PathPoint& point : path.points) types += point.corner ? 'c' : 's';
            if (path.closed) types += types.front();
            attribute("sodipodi:nodetypes", types);
        }
        if (path.points.empty() || (path.closed && path.points.size() > 1)) return;
        const PathPoint& first = path.points.front();
        const PathPoint& last = path.points.back();
        if (first.in == first.anchor && last.out == last.anchor) return;
        std::string ends;
        append(ends, first.in);
        ends += ' ';
        append(ends, last.out);
        attribute("easel:ends", ends);
    }

    void writeStyle(const Style& style) {
        color("fill", style.fill, style.fillColor, true);
        color("stroke", style.stroke, style.strokeColor, false);
        number("stroke-width", style.strokeWidth, 1);
        number("stroke-miterlimit", style.miterLimit, 4);
        if (style.cap != model::Cap::Butt) {
            attribute("stroke-linecap", style.cap == model::Cap::Round ? "round" : "square");
        }
        if (style.join != model::Join::Miter) {
            attribute("stroke-linejoin", style.join == model::Join::Round ? "round" : "bevel");
        }
        if (style.dashCount == 0) return;
        std::string dashes;
        for (std::size_t i = 0; i < style.dashCount; ++i) {
            if (i > 0) dashes += ' ';
            append(dashes, style.dashes[i]);
        }
        attribute("stroke-dasharray", dashes);
        number("stroke-dashoffset", style.dashOffset, 0);
    }

    void color(std::string_view name, bool painted, const model::Color& color, bool assumed) {
        if (!painted && !assumed) return;
        std::string text;
        painted ? appendColor(text, color) : void(text = "none");
        attribute(name, text);
    }

    void number(std::string_view name, double value, double assumed) {
        if (value == assumed) return;
        std::string text;
        append(text, value);
        attribute(name, text);
    }

    void attribute(std::string_view name, std::string_view value) {
        out_ += ' ';
        out_ += name;
        out_ += "=\"";
        appendEscaped(out_, value);
        out_ += '"';
    }

    void indent() { out_.append(2 * depth_, ' '); }

    std::string out_;
    std::size_t depth_ = 1;
    std::unordered_set<std::string_view> ids_;
};

/// The reader's limits hold for what is written, too: a file that cannot be opened again is lost.
void requireReadable(model::Document& document, const std::string& path) {
    std::size_t elements = 1;
    std::size_t depth = 1;
    const Node* node = &document.root();
    while (node) {
        if (const Node* const child = node->firstChild()) {
            node = child;
            ++depth;
        } else {
            while (node && !node->next()) {
                node = node->parent();
                --depth;
            }
            if (node) node = node->next();
        }
        if (!node) return;
        if (++elements > kMostElements) {
            throw FileError(path + ": more than " + std::to_string(kMostElements) + " objects cannot be saved");
        }
        if (depth > kDeepestElement) throw FileError(path + ": groups nest too deeply to be saved");
        if (node->type() == NodeType::Path && node->path().points.size() > kMostAnchors) {
            throw FileError(path + ": a path of more than " + std::to_string(kMostAnchors) +
                            " anchors cannot be saved");
        }
    }
}

} // namespace

std::string write(model::Document& document) { return Writing().run(document); }

void save(model::Document& document, const std::string& path) {
    requireReadable(document, path);
    replaceFile(path, write(document));
}

} // namespace easel::svg
