// Text to tree, in one scan.
#include "json/Text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

namespace kzo::json {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

long long wholeNumber(std::string_view token) {
    long long value = 0;
    const auto result = std::from_chars(token.data(), token.data() + token.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return token.front() == '-' ? std::numeric_limits<long long>::min() : std::numeric_limits<long long>::max();
}

double fraction(std::string_view token) {
    double value = 0;
    const auto result = std::from_chars(token.data(), token.data() + token.size(), value, std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range) return value;
    // Too small is 0. Too large is what the node makes of infinity.
    if (token.substr(0, token.find('.')).find_first_of("123456789") == std::string_view::npos) return 0;
    return token.front() == '-' ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::infinity();
}

/// One scan from left to right, with the open containers on a stack.
class Parser {
  public:
    Parser(std::string_view text, std::size_t deepest) : text_(text), deepest_(deepest) {}

    Node* run() {
        while (nextToken()) {
            if (!token()) return nullptr;
        }
        return root_.release();
    }

  private:
    /// What may come next. A container may end where `...OrEnd` says so.
    enum class Expect { Root, ValueOrEnd, Value, KeyOrEnd, Key, Colon, CommaOrEnd, Nothing };

    bool nextToken() {
        while (at_ < text_.size() &&
               (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\r' || text_[at_] == '\n'))
            ++at_;
        return at_ < text_.size();
    }

    /// Reads one token; false when it does not fit.
    bool token() {
        const char c = text_[at_];
        switch (c) {
        case '{': return open(Node::Type::Object);
        case '[': return open(Node::Type::Array);
        case '}': return close(Node::Type::Object);
        case ']': return close(Node::Type::Array);
        case ',': return comma();
        case ':': return pass(Expect::Colon, Expect::Value);
        case '"': return string();
        default: break;
        }
        if (!expectsValue()) return false;
        if (c == '-' || c == '.' || isDigit(c)) return number();
        switch (lower(c)) {
        case 't': return keyword("true", [this] { return Node::createBool(std::move(name_), true); });
        case 'f': return keyword("false", [this] { return Node::createBool(std::move(name_), false); });
        case 'n': return keyword("null", [this] { return Node::create(Node::Type::Null, std::move(name_)); });
        default: return false;
        }
    }

    [[nodiscard]] bool expectsValue() const { return expect_ == Expect::Value || expect_ == Expect::ValueOrEnd; }

    bool pass(Expect expected, Expect next) {
        if (expect_ != expected) return false;
        expect_ = next;
        ++at_;
        return true;
    }

    bool comma() {
        return pass(Expect::CommaOrEnd, !open_.empty() && open_.back()->members() ? Expect::Key : Expect::Value);
    }

    bool open(Node::Type type) {
        if ((expect_ != Expect::Root && !expectsValue()) || open_.size() >= deepest_) return false;
        Owned node(Node::create(type, std::move(name_)));
        name_.clear();
        if (open_.empty())
            root_.reset(Node::acquire(node.get()));
        else
            add(*node);
        open_.push_back(std::move(node));
        expect_ = type == Node::Type::Object ? Expect::KeyOrEnd : Expect::ValueOrEnd;
        ++at_;
        return true;
    }

    bool close(Node::Type type) {
        const Expect empty = type == Node::Type::Object ? Expect::KeyOrEnd : Expect::ValueOrEnd;
        if (expect_ != Expect::CommaOrEnd && expect_ != empty) return false;
        if (open_.back()->nodeType() != type) return false;
        open_.pop_back();
        expect_ = open_.empty() ? Expect::Nothing : Expect::CommaOrEnd;
        ++at_;
        return true;
    }

    bool string() {
        const bool isKey = expect_ == Expect::Key || expect_ == Expect::KeyOrEnd;
        if (!isKey && !expectsValue()) return false;
        const std::size_t begin = at_ + 1;
        bool escaped = false;
        std::size_t end = text_.find('"', begin);
        while (end != std::string_view::npos && end > begin && text_[end - 1] == '\\') {
            escaped = true;
            end = text_.find('"', end + 1);
        }
        if (end == std::string_view::npos) return cut();
        std::string value(text_.substr(begin, end - begin));
        if (escaped) unescape(value);
        at_ = end + 1;
        if (isKey) {
            name_ = std::move(value);
            expect_ = Expect::Colon;
        } else {
            take(Node::createStr(std::move(name_), std::move(value)));
        }
        return true;
    }

    static void unescape(std::string& value) {
        std::size_t out = 0;
        for (std::size_t in = 0; in < value.size(); ++in) {
            if (value[in] == '\\' && in + 1 < value.size() && value[in + 1] == '"') ++in;
            value[out++] = value[in];
        }
        value.resize(out);
    }

    bool number() {
        std::size_t end = at_ + 1;
        bool whole = text_[at_] != '.';
        for (; end < text_.size() && (isDigit(text_[end]) || text_[end] == '.'); ++end)
            whole = whole && text_[end] != '.';
        if (end == text_.size()) return cut();
        const std::string_view digits = text_.substr(at_, end - at_);
        at_ = end;
        take(whole ? Node::createInt(std::move(name_), wholeNumber(digits))
                   : Node::createFloat(std::move(name_), fraction(digits)));
        return true;
    }

    template <class Make> bool keyword(std::string_view word, Make make) {
        const std::string_view found = text_.substr(at_, word.size());
        const bool fits =
            std::equal(found.begin(), found.end(), word.begin(), [](char a, char b) { return lower(a) == b; });
        if (!fits) return false;
        if (found.size() < word.size()) return cut();
        at_ += word.size();
        take(make());
        return true;
    }

    /// The text ends within a token, which is left out.
    bool cut() {
        at_ = text_.size();
        return true;
    }

    void take(Node* made) {
        const Owned node(made);
        name_.clear();
        add(*node);
        expect_ = Expect::CommaOrEnd;
    }

    /// Where the name is taken, the node is left out.
    void add(Node& node) {
        Node& container = *open_.back();
        if (container.members())
            container.addMember(&node);
        else
            container.addElement(&node);
    }

    std::string_view text_;
    std::size_t deepest_;
    std::size_t at_ = 0;
    Expect expect_ = Expect::Root;
    std::string name_; ///< of the member whose value comes next
    Owned root_;
    std::vector<Owned> open_;
};

} // namespace

Node* parse(std::string_view text, std::size_t deepest) { return Parser(text, deepest).run(); }

} // namespace kzo::json
