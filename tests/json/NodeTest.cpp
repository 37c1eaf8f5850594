// Nodes: kinds, ownership, and trees that are built in ways that must not be.
#include "json/Node.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace kzo::json;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();
constexpr long long kMost = std::numeric_limits<long long>::max();
constexpr long long kLeast = std::numeric_limits<long long>::min();

Owned array() { return Owned(Node::create(Node::Type::Array, "")); }
Owned object(const std::string& name = "") { return Owned(Node::create(Node::Type::Object, name)); }
Owned number(const std::string& name, long long value = 0) { return Owned(Node::createInt(name, value)); }

TEST(JsonNode, SaysNumbersAsWholeOnesAndAsFractions) {
    const struct {
        double value;
        long long whole;
    } rows[] = {{2.5, 3},
                {-2.5, -3},
                {2.4, 2},
                {-2.4, -2},
                {-0.5, -1},
                {1e300, kMost},
                {-1e300, kLeast},
                {9223372036854775808.0, kMost},
                {NAN, 0},
                {kInfinity, kMost},
                {-kInfinity, kLeast},
                {-9223372036854775808.0, kLeast}};
    for (const auto& row : rows) {
        const Owned made(Node::createFloat("", row.value));
        EXPECT_EQ(made->intValue(), row.whole) << row.value;
        EXPECT_TRUE(made->isFloat());
        const Owned set(Node::createInt("", 1));
        EXPECT_TRUE(set->setDoubleValue(row.value));
        EXPECT_EQ(set->doubleValue(), made->doubleValue());
        EXPECT_LE(std::abs(set->doubleValue()), kLargest);
    }
    const Owned node = number("", kMost);
    EXPECT_EQ(node->doubleValue(), 9223372036854775808.0);
    EXPECT_TRUE(node->setDoubleValue(kInfinity));
    EXPECT_EQ(node->doubleValue(), kLargest);
    EXPECT_TRUE(node->setIntValue(7));
    EXPECT_FALSE(node->isFloat());
}

TEST(JsonNode, KeepsToItsKind) {
    const Owned yes(Node::createBool("", true));
    EXPECT_EQ(yes->intValue(), 1);
    EXPECT_EQ(yes->doubleValue(), 1.0);
    const Owned text(Node::createStr("", "12"));
    EXPECT_EQ(text->intValue(), 0);
    EXPECT_EQ(text->doubleValue(), 0.0);
    EXPECT_FALSE(text->setIntValue(1) || text->setDoubleValue(1) || text->setBoolValue(true));
    EXPECT_FALSE(yes->setStringValue("x") || yes->addElement(text.get()) || yes->addMember(text.get()));
    EXPECT_EQ(yes->stringValue(), "");
    EXPECT_EQ(yes->elements(), nullptr);
    EXPECT_EQ(yes->members(), nullptr);
    EXPECT_EQ(array()->members(), nullptr);
    EXPECT_EQ(object()->elements(), nullptr);
    EXPECT_EQ(Node::create(static_cast<Node::Type>(3), ""), nullptr);
    EXPECT_EQ(Node::acquire(nullptr), nullptr);
}

TEST(JsonNode, RefusesChildrenThatCannotBe) {
    const Owned outer = object();
    const Owned inner = object("inner");
    const Owned deep = object("deep");
    EXPECT_TRUE(outer->addMember(inner.get()));
    EXPECT_TRUE(inner->addMember(deep.get()));
    EXPECT_FALSE(deep->addMember(outer.get())) << "its own ancestor";
    EXPECT_FALSE(outer->addMember(outer.get()));
    EXPECT_FALSE(outer->addMember(nullptr));
    EXPECT_FALSE(array()->addElement(deep.get())) << "it has a container";
    EXPECT_FALSE(outer->addMember(number("inner").get())) << "the name is taken";
    EXPECT_EQ(Owned(outer->member("inner")), inner);
    EXPECT_FALSE(outer->removeMember(deep.get()));
    EXPECT_FALSE(array()->removeElement(0));
    EXPECT_EQ(outer->membersCount(), 1u);
    EXPECT_TRUE(outer->removeMember(inner.get()));
    EXPECT_EQ(inner->parent(), nullptr);
    EXPECT_TRUE(deep->addMember(outer.get())) << "free again";
}

TEST(JsonNode, KeysAMemberAgainWhenItIsRenamed) {
    const Owned outer = object();
    const Owned a = number("a");
    const Owned b = number("b");
    EXPECT_TRUE(outer->addMember(a.get()) && outer->addMember(b.get()));
    EXPECT_FALSE(a->setName("b"));
    EXPECT_EQ(a->name(), "a");
    EXPECT_TRUE(a->setName("c"));
    EXPECT_EQ(outer->member("a"), nullptr);
    EXPECT_EQ(Owned(outer->member("c")), a);
    EXPECT_EQ(outer->members()->begin()->second, b.get());
}

TEST(JsonNode, LeavesWhatOthersHold) {
    const Owned held = number("held", 5);
    {
        const Owned outer = object();
        Owned list(Node::create(Node::Type::Array, "list"));
        EXPECT_TRUE(outer->addMember(list.get()));
        EXPECT_TRUE(list->addElement(held.get()));
        EXPECT_EQ(Owned(list->element(0)), held);
        EXPECT_EQ(list->element(1), nullptr);
        EXPECT_EQ(held->parent(), list.get());
    }
    EXPECT_EQ(held->parent(), nullptr);
    EXPECT_EQ(held->intValue(), 5);
}

TEST(JsonNode, FindsTheFirstInOrder) {
    const Owned outer = object("o");
    const Owned b = object("b");
    const Owned in = number("x", 1);
    const Owned after = number("x", 2);
    const Owned list(Node::create(Node::Type::Array, "a"));
    const Owned element = number("x", 3);
    EXPECT_TRUE(b->addMember(in.get()) && outer->addMember(b.get()) && outer->addMember(after.get()));
    EXPECT_EQ(Owned(outer->find("x")), in) << "within b, which comes before x";
    EXPECT_TRUE(list->addElement(element.get()) && outer->addMember(list.get()));
    EXPECT_EQ(Owned(outer->find("x")), element) << "within a, which comes first";
    EXPECT_EQ(Owned(outer->find("o")), outer);
    EXPECT_EQ(outer->find("y"), nullptr);
}

} // namespace
