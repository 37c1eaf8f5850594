// Tree to text, without recursion.
#include "json/Children.h"
#include "json/Text.h"

#include <charconv>
#include <cmath>
#include <vector>

namespace kzo::json {

namespace {

class Writer {
  public:
    Writer(bool pretty, unsigned depth) : pretty_(pretty), depth_(depth) {}

    std::string write(const Node& node) {
        value(node);
        while (!open_.empty()) {
            Node* const child = open_.back().children.next();
            if (!child) {
                close();
                continue;
            }
            if (!open_.back().empty) {
                text_ += ',';
                lineEnd();
            }
            open_.back().empty = false;
            indent();
            if (open_.back().end == '}') (text_ += '"').append(child->name()) += "\":";
            value(*child);
        }
        return std::move(text_);
    }

  private:
    struct Container {
        Children children;
        char end;
        bool empty = true;
    };

    void value(const Node& node) {
        switch (node.nodeType()) {
        case Node::Type::Null: text_ += "null"; break;
        case Node::Type::Bool: text_ += node.boolValue() ? "true" : "false"; break;
        case Node::Type::Number: number(node.doubleValue()); break;
        case Node::Type::String: string(node.stringValue()); break;
        case Node::Type::Array: open(node, '[', ']'); break;
        case Node::Type::Object: open(node, '{', '}'); break;
        }
    }

    /// A container inside of another starts on a line of its own.
    void open(const Node& node, char begin, char end) {
        if (depth() > 0) {
            lineEnd();
            indent();
        }
        text_ += begin;
        lineEnd();
        open_.push_back({Children(node), end});
    }

    void close() {
        const char end = open_.back().end;
        open_.pop_back();
        lineEnd();
        indent();
        text_ += end;
    }

    void number(double value) {
        char digits[384];
        char* end = digits;
        constexpr double kExact = 9007199254740992.0; // 2^53: up to here, whole numbers are what they say
        if (std::abs(value) < kExact && value == std::trunc(value) && !std::signbit(value)) {
            end = std::to_chars(digits, digits + sizeof digits, static_cast<long long>(value)).ptr;
        } else {
            // As printf's "%.15lf" in the classic locale.
            end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 15).ptr;
            while (end[-1] == '0') --end;
            if (end[-1] == '.') --end;
        }
        text_.append(digits, end);
    }

    void string(const std::string& value) {
        text_ += '"';
        for (std::size_t from = 0;;) {
            const std::size_t quote = value.find('"', from);
            text_.append(value, from, quote - from);
            if (quote == std::string::npos) break;
            text_ += "\\\"";
            from = quote + 1;
        }
        text_ += '"';
    }

    [[nodiscard]] std::size_t depth() const { return depth_ + open_.size(); }
    void lineEnd() {
        if (pretty_) text_ += '\n';
    }
    void indent() {
        if (pretty_) text_.append(depth(), '\t');
    }

    bool pretty_;
    unsigned depth_;
    std::vector<Container> open_;
    std::string text_;
};

} // namespace

std::string serialize(const Node* node, bool pretty, unsigned depth) {
    return node ? Writer(pretty, depth).write(*node) : std::string();
}

} // namespace kzo::json
