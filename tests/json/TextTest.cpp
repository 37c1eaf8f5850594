// The dialect: what is read, what is refused, what is written, and how both meet another library where it speaks the
// same.
#include "json/Text.h"

#include <cstdio>
#include <cstring>
#include <random>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace kzo::json;

/// What is read, written without blanks; "none" for what is refused.
std::string again(std::string_view text) {
    const Owned root(parse(text));
    return root ? serialize(root.get(), false, 0) : "none";
}

TEST(JsonText, ReadsItsDialectAndNothingElse) {
    const struct {
        const char* text;
        const char* read;
    } rows[] = {
        {"\t{ \"a\" :\r\n[1 , true]}  \n", R"({"a":[1,true]})"},
        {R"([TRUE,False,nULL])", "[true,false,null]"},
        {R"({"b":1,"B":2,"_":3})", R"({"B":2,"_":3,"b":1})"},
        {R"({"a":1,"a":[2,{}],"b":3})", R"({"a":1,"b":3})"},
        // strings
        {R"(["a\"b"])", R"(["a\"b"])"},
        {R"(["a\nb\\c"])", R"(["a\nb\\c"])"},
        {R"(["\\"b"])", R"(["\\"b"])"},
        {R"({"\"a":1})", R"({""a":1})"},
        {"[\"\xff\n\"]", "[\"\xff\n\"]"},
        // numbers
        {"[5,-5,007,-,.,-.5,5.,1.2.3,]", "none"},
        {"[5,-5,007,-,.,-.5,5.,1.2.3]", "[5,-5,7,0,0,-0.5,5,1.2]"},
        {"[2.0,30.00,100,0.25,100.50]", "[2,30,100,0.25,100.5]"},
        {"[0.1234567890123456789,0.0000000000000001]", "[0.123456789012346,0]"},
        {"[99999999999999999999,-99999999999999999999]", "[9223372036854775808,-9223372036854775808]"},
        {"[1e5]", "none"},
        {"[1E5]", "none"},
        {"[+1]", "none"},
        {"[1 2]", "none"},
        {"[1-2]", "none"},
        // what does not fit
        {"", "none"},
        {"  ", "none"},
        {"1 ", "none"},
        {"\"a\"", "none"},
        {"true", "none"},
        {"{} x", "none"},
        {"{}{}", "none"},
        {"[,]", "none"},
        {"[1,]", "none"},
        {"{\"a\":1,}", "none"},
        {"{\"a\" 1}", "none"},
        {"{\"a\":}", "none"},
        {"{1:2}", "none"},
        {"[\"a\":1]", "none"},
        {"[1:2]", "none"},
        {"[}", "none"},
        {"{]", "none"},
        {"]", "none"},
        {"[trux]", "none"},
        {"[truex]", "none"},
        {"[ture", "none"},
        {"['a']", "none"},
        {"\xef\xbb\xbf[]", "none"},
        // what ends too early
        {"{", "{}"},
        {"[1,[2,3", "[1,[2]]"},
        {"[1,[2,3 ", "[1,[2,3]]"},
        {"{\"a\":1,\"b\":\"c", "{\"a\":1}"},
        {"{\"a\":1,\"b\"", "{\"a\":1}"},
        {"[1,tru", "[1]"},
        {"[1,true", "[1,true]"},
        {"[1 \"a", "none"},
    };
    for (const auto& row : rows) EXPECT_EQ(again(row.text), row.read) << row.text;
    EXPECT_EQ(serialize(nullptr, true, 0), "");
    EXPECT_EQ(Owned(parse("[[[]]]", 3)) == nullptr, false);
    EXPECT_EQ(parse("[[[]]]", 2), nullptr);
}

TEST(JsonText, LaysOutPrettily) {
    const Owned root(parse(R"({"b":{"list":[1,[],"x"],"empty":{}},"a":true})"));
    EXPECT_EQ(serialize(root.get(), true, 0), "{\n\t\"a\":true,\n\t\"b\":\n\t{\n\t\t\"empty\":\n\t\t{\n\n\t\t},\n"
                                              "\t\t\"list\":\n\t\t[\n\t\t\t1,\n\t\t\t\n\t\t\t[\n\n\t\t\t],\n"
                                              "\t\t\t\"x\"\n\t\t]\n\t}\n}");
    const Owned list(parse("[1]"));
    EXPECT_EQ(serialize(list.get(), true, 1), "\n\t[\n\t\t1\n\t]");
}

TEST(JsonText, WritesNumbersAsPrintfDoes) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 20000; ++i) {
        // Whole numbers, decimals of a few places, and any bits at all.
        double value =
            static_cast<double>(static_cast<std::int64_t>(random()) >> (random() % 63)) / (i % 3 == 0 ? 1 : 1000);
        if (const std::uint64_t bits = random(); i % 3 == 2) std::memcpy(&value, &bits, sizeof value);
        const Owned node(Node::createFloat("", value));
        char expected[384];
        std::snprintf(expected, sizeof expected, "%.15lf", node->doubleValue());
        std::string text = expected;
        while (text.back() == '0') text.pop_back();
        if (text.back() == '.') text.pop_back();
        ASSERT_EQ(serialize(node.get(), false, 0), text) << value;
    }
}

TEST(JsonText, GoesAMillionDeepWithoutRecursion) {
    for (const char* const level : {"[", "{\"a\":"}) {
        constexpr int kDepth = 1'000'000;
        std::string text;
        for (int i = 0; i < kDepth; ++i) text += level;
        text += "[]";
        text.append(kDepth, level[0] == '[' ? ']' : '}');
        const Owned root(parse(text));
        ASSERT_TRUE(root);
        EXPECT_EQ(serialize(root.get(), false, 0), text);
        EXPECT_EQ(root->find("b"), nullptr);
    }
}

/// A value that both libraries say alike: text without backslashes and control characters, decimals of a few places.
nlohmann::json anything(std::mt19937& random, int depth) {
    static const char* const kTexts[] = {
        "", "zAxis", "a \"quoted\" word", "\xc3\xa9t\xc3\xa9", "{\"not\":[an,object]}", "30"};
    const auto below = [&](unsigned limit) { return random() % limit; };
    switch (below(depth > 0 ? 7 : 5)) {
    case 0: return nullptr;
    case 1: return below(2) == 1;
    case 2: return static_cast<std::int32_t>(random());
    case 3: return static_cast<double>(static_cast<std::int32_t>(random())) / 1000;
    case 4: return kTexts[below(6)];
    case 5: {
        auto list = nlohmann::json::array();
        for (unsigned i = below(6); i > 0; --i) list.push_back(anything(random, depth - 1));
        return list;
    }
    default: {
        auto members = nlohmann::json::object();
        for (unsigned i = below(6); i > 0; --i)
            members["key" + std::to_string(below(20))] = anything(random, depth - 1);
        return members;
    }
    }
}

TEST(JsonText, AgreesWithAnotherLibrary) {
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        const nlohmann::json value = nlohmann::json::array({anything(random, 6)});
        const Owned root(parse(value.dump(i % 3 - 1)));
        ASSERT_TRUE(root) << value;
        for (const bool pretty : {false, true})
            ASSERT_EQ(nlohmann::json::parse(serialize(root.get(), pretty, 0)), value);
    }
}

} // namespace
