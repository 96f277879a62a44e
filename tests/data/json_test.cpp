#include "data/json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "data/utf8.h"
#include "session/session.h"

namespace {

template <class T>
std::string written(const T& value) {
    std::string text;
    JsonWriter(text).value(value);
    return text;
}

} // namespace

TEST(Json, WritesNumbersAtFullPrecision) {
    EXPECT_EQ(written(0.1), "0.1");
    EXPECT_EQ(written(0.1f), "0.1");
    EXPECT_EQ(written(22.79710106035492), "22.79710106035492");
    EXPECT_EQ(std::stod(written(1.0 / 3)), 1.0 / 3);
    EXPECT_EQ(written(-7), "-7");
}

TEST(Json, NoValueIsNull) {
    EXPECT_EQ(written(noAnswer), "null");
    EXPECT_EQ(written(static_cast<float>(noAnswer)), "null");
    EXPECT_EQ(written(std::nan("")), "null");
    EXPECT_EQ(written(std::numeric_limits<double>::infinity()), "null");
    EXPECT_EQ(written(-std::numeric_limits<float>::infinity()), "null");
}

TEST(Json, EscapesWhatTheFormatAsksFor) {
    const std::string text = "a\"b\\c\nd\re\tf\x01g\x7f";
    EXPECT_EQ(nlohmann::json::parse(written(std::string_view(text))), text);
}

TEST(Json, NestsObjectsAndArrays) {
    std::string text;
    JsonWriter json(text);
    json.open('{');
    json.name("empty");
    json.open('[');
    json.close(']');
    json.name("list");
    json.open('[');
    json.value(1);
    json.null();
    json.close(']');
    json.field("name", std::string_view("x"));
    json.close('}');
    EXPECT_EQ(nlohmann::json::parse(text),
              nlohmann::json({{"empty", nlohmann::json::array()}, {"list", {1, nullptr}}, {"name", "x"}}));
}

TEST(Utf8, KnowsWellFormedText) {
    for (const char* good : {"", "plain", "\u00E9", "\u20AC", "\U0001F600", "\uFFFD"})
        EXPECT_TRUE(isutf8(good)) << good;
    // A lone continuation, a cut sequence, an overlong form, a surrogate, a point above U+10FFFF.
    for (const char* bad :
         {"\x80", "\xC3", "\xE2\x82", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"})
        EXPECT_FALSE(isutf8(bad));
}

TEST(Utf8, ReadsOtherTextAsWindows1252) {
    EXPECT_EQ(asutf8("K\xFC\x68ler \x80"), "K\u00FChler \u20AC");
    EXPECT_EQ(asutf8("K\u00FChler"), "K\u00FChler");
    EXPECT_EQ(asutf8("\x81\x9F"), "\u0081\u0178");
}
