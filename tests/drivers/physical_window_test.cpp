#include <array>
#include <gmock/gmock.h>
#include <string_view>
#include <vector>

extern "C" {
#include "physical_window.h"
}

namespace {

using namespace std::string_view_literals;
using testing::FieldsAre;

struct Request {
  Unsigned32 Code;
  std::string_view Input;
  Unsigned32 OutputLength;
  WindowAnswer Answer;
};

constexpr Request kAddress = {0x222018, "\x00\x00\x0F\x00"sv, 0, WindowNoted};
constexpr Request kLength256 = {0x222020, "\x00\x01\x00\x00"sv, 0, WindowNoted};
constexpr Request kCopy256 = {0x222040, "", 256, WindowCopy};
constexpr Request kRefusedCopy = {0x222040, "", 256, WindowWrongRange};

WindowAnswer Send(PhysicalWindow& window, const Request& request, PhysicalRange& range) {
  return AnswerWindowRequest(&window, request.Code, request.Input.data(),
                             static_cast<Unsigned32>(request.Input.size()), request.OutputLength,
                             &range);
}

TEST(PhysicalWindow, RefusesWhatItDoesNotAllow) {
  const std::vector<Request> cases[] = {
      {{0x222014, "\x00\x00\x00\x00"sv, 0, WindowUnknownCode}},
      {{0x222024, "", 256, WindowUnknownCode}},
      {{0x222018, "", 0, WindowWrongBuffer}},
      {{0x222018, "\x00\x00\x0F"sv, 0, WindowWrongBuffer}},
      {{0x222018, "\x00\x00\x0F\x00\x00"sv, 0, WindowWrongBuffer}},
      {{0x222018, "\x00\x00\x0F\x00"sv, 4, WindowWrongBuffer}},
      {{0x222020, "\x00\x01"sv, 0, WindowWrongBuffer}},
      {{0x222020, "\x00\x01\x00\x00\x00\x00\x00\x00"sv, 0, WindowWrongBuffer}},
      {{0x222020, "\x00\x01\x00\x00"sv, 1, WindowWrongBuffer}},
      {kAddress, {0x222020, "\x00\x00\x00\x00"sv, 0, WindowWrongRange}, kRefusedCopy},
      {kAddress, {0x222020, "\x00\x00\x01\x00"sv, 0, WindowWrongRange}, kRefusedCopy},
      {kAddress, {0x222020, "\xFF\xFF\xFF\xFF"sv, 0, WindowWrongRange}, kRefusedCopy},
      // Nothing of an earlier address is left by a length that is refused.
      {kAddress, {0x222020, "\x00\x00\x01\x00"sv, 0, WindowWrongRange}, kLength256, kRefusedCopy},
      {kRefusedCopy},
      {kAddress, kRefusedCopy},
      {kLength256, kRefusedCopy},
      {kAddress, kLength256, {0x222040, "", 255, WindowWrongBuffer}, kRefusedCopy},
      {kAddress, kLength256, {0x222040, "", 257, WindowWrongBuffer}, kRefusedCopy},
      {kAddress, kLength256, {0x222040, "", 0, WindowWrongBuffer}, kRefusedCopy},
      {kAddress, kLength256, {0x222040, "\x00"sv, 256, WindowWrongBuffer}},
      {kAddress, kLength256, kCopy256, kRefusedCopy},
      {{0x222018, "\xFF\xFF\xFF\xFF"sv, 0, WindowNoted},
       {0x222020, "\x02\x00\x00\x00"sv, 0, WindowNoted},
       {0x222040, "", 2, WindowWrongRange}},
      {{0x222018, "\x02\x00\xFF\xFF"sv, 0, WindowNoted},
       {0x222020, "\xFF\xFF\x00\x00"sv, 0, WindowNoted},
       {0x222040, "", 65535, WindowWrongRange}},
  };
  for (const auto& requests : cases) {
    SCOPED_TRACE(&requests - cases);
    PhysicalWindow window{};
    PhysicalRange range{};
    for (const Request& request : requests) {
      SCOPED_TRACE(&request - requests.data());
      EXPECT_EQ(Send(window, request, range), request.Answer);
    }
  }
}

// What a copy takes after a length and an address are noted: they may come in any order.
PhysicalRange RangeOf(std::string_view length, std::string_view address, Unsigned32 outputLength) {
  PhysicalWindow window{};
  PhysicalRange range{};
  EXPECT_EQ(Send(window, {0x222020, length, 0, {}}, range), WindowNoted);
  EXPECT_EQ(Send(window, {0x222018, address, 0, {}}, range), WindowNoted);
  EXPECT_EQ(Send(window, {0x222040, "", outputLength, {}}, range), WindowCopy);
  return range;
}

TEST(PhysicalWindow, GivesTheRangeThatIsNoted) {
  constexpr auto kOne = "\x01\x00\x00\x00"sv;
  constexpr auto kMost = "\xFF\xFF\x00\x00"sv;
  EXPECT_THAT(RangeOf(kOne, "\x00\x00\x00\x00"sv, 1), FieldsAre(0, 1));
  EXPECT_THAT(RangeOf("\x00\x01\x00\x00"sv, "\x00\x00\x0F\x00"sv, 256), FieldsAre(0xF0000, 256));
  EXPECT_THAT(RangeOf(kMost, "\x78\x56\x34\x82"sv, 65535), FieldsAre(0x82345678, 65535));
  EXPECT_THAT(RangeOf(kMost, "\x01\x00\xFF\xFF"sv, 65535), FieldsAre(0xFFFF0001, 65535));
  EXPECT_THAT(RangeOf(kOne, "\xFF\xFF\xFF\xFF"sv, 1), FieldsAre(0xFFFFFFFF, 1));
}

PhysicalView View(const PhysicalRange& range, Unsigned32 granularity) {
  return ViewOfRange(&range, granularity);
}

TEST(PhysicalWindow, ViewsStartAtTheirGranularity) {
  EXPECT_THAT(View({0xF0000, 256}, 0x10000), FieldsAre(0xF0000, 0, 256));
  EXPECT_THAT(View({0xFFFF0, 256}, 0x10000), FieldsAre(0xF0000, 0xFFF0, 0x100F0));
  EXPECT_THAT(View({0xFFFFFFFF, 1}, 0x10000), FieldsAre(0xFFFF0000, 0xFFFF, 0x10000));
  EXPECT_THAT(View({0x8234FFFF, 65535}, 0x1000), FieldsAre(0x8234F000, 0xFFF, 0x10FFE));
}

}  // namespace
