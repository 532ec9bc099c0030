#include "tools/kestrel/html_drawings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "catalog/structure_fields.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

using catalog::Structure;
using catalog::StructureFields;

// No machine has more of a kind than are worth drawing; a hostile table may.
constexpr std::size_t kMostDrawn = 64;

// A number as an attribute of a drawing, in pixels.
std::string Pixels(std::uint64_t number) { return std::string(Decimal(number)); }

void OpenDrawing(HtmlWriter& html, std::uint64_t width, std::uint64_t height,
                 std::string_view title) {
  const std::string box = Join({"0 0 ", Decimal(width), " ", Decimal(height)});
  html.Open(
      "svg",
      {{"width", Pixels(width)}, {"height", Pixels(height)}, {"viewBox", box}, {"role", "img"}});
  html.TextElement("title", title);
}

struct Box {
  std::uint64_t Left;
  std::uint64_t Top;
  std::uint64_t Width;
  std::uint64_t Height;
};

void DrawBox(HtmlWriter& html, std::string_view kind, const Box& box) {
  html.TextElement("rect", {},
                   {{"class", kind},
                    {"x", Pixels(box.Left)},
                    {"y", Pixels(box.Top)},
                    {"width", Pixels(box.Width)},
                    {"height", Pixels(box.Height)}});
}

// `left` and `top` are those of the line that the letters stand on.
void DrawText(HtmlWriter& html, std::string_view kind, std::uint64_t left, std::uint64_t top,
              std::string_view text) {
  if (!text.empty()) {
    html.TextElement("text", text, {{"class", kind}, {"x", Pixels(left)}, {"y", Pixels(top)}});
  }
}

std::string Sentence(std::string_view separator, std::initializer_list<std::string> texts) {
  std::string sentence;
  for (const std::string& text : texts) {
    if (!text.empty()) {
      Append(sentence, {sentence.empty() ? "" : separator, text});
    }
  }
  return sentence;
}

void NoteRest(HtmlWriter& html, std::uint64_t count, std::string_view what) {
  if (count > kMostDrawn) {
    html.TextElement("p", Join({"and ", Decimal(count - kMostDrawn), " more ", what}),
                     {{"class", "note"}});
  }
}

// Memory

// Whether a name comes before another where people count: "DIMM 2" before "DIMM 10".
bool IsBefore(std::string_view left, std::string_view right) {
  const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
  while (!left.empty() && !right.empty()) {
    if (isDigit(left.front()) && isDigit(right.front())) {
      const auto takeNumber = [&](std::string_view& text) {
        text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
        const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
        const auto number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        text.remove_prefix(number.size());
        return std::pair(number.size(), number);
      };
      const auto leftNumber = takeNumber(left);
      const auto rightNumber = takeNumber(right);
      if (leftNumber != rightNumber) {
        return leftNumber < rightNumber;
      }
    } else if (left.front() != right.front()) {
      return left.front() < right.front();
    } else {
      left.remove_prefix(1);
      right.remove_prefix(1);
    }
  }
  return left.size() < right.size();
}

bool IsPlacedBefore(const MemoryDeviceFacts& left, const MemoryDeviceFacts& right) {
  if (left.Array != right.Array) {
    return left.Array < right.Array;
  }
  return left.Bank != right.Bank ? IsBefore(left.Bank, right.Bank)
                                 : IsBefore(left.Locator, right.Locator);
}

// What the modules have in common.
struct ModuleSizes {
  std::uint64_t Largest = 0;
  // That of most modules.
  std::uint64_t Usual = 0;
};

ModuleSizes SizesOf(const std::vector<MemoryDeviceFacts>& devices) {
  ModuleSizes sizes;
  std::map<std::uint64_t, std::size_t> counts;
  for (const MemoryDeviceFacts& device : devices) {
    if (const std::uint64_t size = device.SizeBytes.value_or(0)) {
      ++counts[size];
      sizes.Largest = std::max(sizes.Largest, size);
    }
  }
  std::size_t most = 0;
  for (const auto& [size, count] : counts) {
    if (count >= most) {
      most = count;
      sizes.Usual = size;
    }
  }
  return sizes;
}

// The speed at which the module runs, and its own where that is higher.
std::string TextOfSpeed(const MemoryDeviceFacts& device, bool isSlow) {
  const auto own = device.SpeedMegatransfersPerSecond;
  const auto configured = device.ConfiguredSpeedMegatransfersPerSecond;
  if (!own && !configured) {
    return {};
  }
  return Join({Decimal(configured ? *configured : *own), isSlow ? " of " : "",
               isSlow ? std::string_view(Decimal(*own)) : std::string_view(), " MT/s"});
}

std::string PlaceOf(const MemoryDeviceFacts& device) {
  const std::string place =
      Sentence(", ", {TextOfFirmware(device.Locator),
                      device.Bank != device.Locator ? TextOfFirmware(device.Bank) : ""});
  return place.empty() ? "slot" : place;
}

void DrawSlot(HtmlWriter& html, const MemoryDeviceFacts& device, const ModuleSizes& sizes) {
  constexpr std::uint64_t kWidth = 148;
  constexpr std::uint64_t kHeight = 112;
  constexpr std::uint64_t kLeft = 10;
  const bool isEmpty = device.SizeBytes == 0U;
  const bool isOdd = !isEmpty && device.SizeBytes && *device.SizeBytes != sizes.Usual;
  const bool isSlow =
      device.ConfiguredSpeedMegatransfersPerSecond &&
      device.ConfiguredSpeedMegatransfersPerSecond < device.SpeedMegatransfersPerSecond;
  const std::string size = isEmpty            ? "empty"
                           : device.SizeBytes ? TextOfSize(*device.SizeBytes)
                                              : "unknown";
  const std::string type = isEmpty ? std::string() : TextOfFirmware(device.Type);
  const std::string form = isEmpty ? std::string() : TextOfFirmware(device.FormFactor);
  const std::string speed = isEmpty ? std::string() : TextOfSpeed(device, isSlow);
  const std::string oddity =
      Sentence(", ", {isOdd ? "other size" : "", isSlow ? "runs slower" : ""});
  const std::string place = PlaceOf(device);
  html.Open("li");
  OpenDrawing(html, kWidth, kHeight,
              Join({place, ": ", Sentence(", ", {size, type, form, speed, oddity})}));
  const std::uint64_t bytes = device.SizeBytes.value_or(0);
  if (bytes != 0) {
    // Sizes may take 64 bits.
    const std::uint64_t part = std::max<std::uint64_t>(sizes.Largest / (kHeight - 4), 1);
    const std::uint64_t filled = std::clamp<std::uint64_t>(bytes / part, 1, kHeight - 4);
    DrawBox(html, "full", {2, kHeight - 2 - filled, kWidth - 4, filled});
  }
  DrawBox(html,
          isEmpty          ? "none"
          : oddity.empty() ? "frame"
                           : "bad",
          {1, 1, kWidth - 2, kHeight - 2});
  DrawText(html, "big", kLeft, 24, size);
  std::uint64_t top = 46;
  for (const std::string_view line : {type, form, speed, oddity}) {
    DrawText(html, "small", kLeft, top, line);
    top += line.empty() ? 0 : 18;
  }
  html.Close();
  html.Text(place);
  html.Close();
  html.EndLine();
}

// Where there are too many slots to draw, those with a module stay.
void LeaveOutEmptySlots(std::vector<MemoryDeviceFacts>& devices) {
  std::size_t tooMany = devices.size() - std::min(devices.size(), kMostDrawn);
  const auto kept =
      std::remove_if(devices.rbegin(), devices.rend(), [&tooMany](const MemoryDeviceFacts& device) {
        const bool isLeftOut = tooMany != 0 && device.SizeBytes == 0U;
        tooMany -= isLeftOut ? 1 : 0;
        return isLeftOut;
      });
  devices.erase(devices.begin(), kept.base());
}

}  // namespace

void DrawMemory(HtmlWriter& html, const Overview& overview) {
  std::vector<MemoryDeviceFacts> devices;
  overview.ForEachMemoryDevice([&](const MemoryDeviceFacts& device) { devices.push_back(device); });
  if (devices.empty()) {
    return;
  }
  std::stable_sort(devices.begin(), devices.end(), IsPlacedBefore);
  const std::size_t count = devices.size();
  LeaveOutEmptySlots(devices);
  const ModuleSizes sizes = SizesOf(devices);
  const MemoryFacts memory = overview.GetMemory();
  html.Element("section", {}, [&] {
    html.TextElement("h2", "Memory");
    html.Open("figure");
    html.Open("ul", {{"class", "row memory"}});
    for (std::size_t index = 0; index < std::min(devices.size(), kMostDrawn); ++index) {
      DrawSlot(html, devices[index], sizes);
    }
    html.Close();
    html.TextElement(
        "figcaption",
        Sentence("; ", {Join({memory.InstalledBytes ? TextOfSize(*memory.InstalledBytes)
                                                    : "An unknown amount",
                              " in ", Decimal(memory.SlotsUsed.value_or(0)), " of ", Decimal(count),
                              count == 1 ? " slot" : " slots"}),
                        memory.MaximumBytes ? "at most " + TextOfSize(*memory.MaximumBytes) : "",
                        memory.ErrorCorrection.empty()
                            ? ""
                            : "error correction: " + TextOfFirmware(memory.ErrorCorrection),
                        "filled in proportion to the largest module"}));
    html.Close();
    NoteRest(html, count, "slots");
  });
}

namespace {

// Processors

constexpr std::array<std::string_view, 3> kLevels = {"L1", "L2", "L3"};

std::string Count(std::optional<std::uint64_t> count, std::string_view one,
                  std::string_view several) {
  return count ? Join({Decimal(*count), " ", *count == 1 ? one : several}) : std::string();
}

std::string TextOfCaches(const ProcessorFacts& processor) {
  std::string text;
  for (std::size_t level = 0; level < kLevels.size(); ++level) {
    if (const std::uint64_t bytes = processor.CacheBytes[level].value_or(0)) {
      Append(text, {text.empty() ? "" : ", ", kLevels[level], " ", TextOfSize(bytes)});
    }
  }
  return text;
}

void DrawSocket(HtmlWriter& html, const ProcessorFacts& processor) {
  constexpr std::uint64_t kWidth = 260;
  constexpr std::uint64_t kLeft = 10;
  constexpr std::uint64_t kCore = 18;
  constexpr std::uint64_t kCoresInRow = 12;
  constexpr std::uint64_t kMostCores = 96;
  constexpr std::uint64_t kBar = 22;
  constexpr std::uint64_t kBarLeft = 100;
  // From 1 KiB on, each doubling is as wide as the others; 2 GiB take the whole width.
  constexpr std::uint64_t kSmallest = 10;
  constexpr std::uint64_t kDoubling = 7;
  const bool isEmpty = processor.Populated == false && !processor.CurrentSpeedMegahertz;
  const std::string socket = processor.Socket.empty() ? "Socket" : TextOfFirmware(processor.Socket);
  const std::uint64_t cores = isEmpty ? 0 : std::min(processor.Cores.value_or(0), kMostCores);
  const std::uint64_t rows = (cores + kCoresInRow - 1) / kCoresInRow;
  const auto levels = static_cast<std::uint64_t>(
      std::count_if(processor.CacheBytes.begin(), processor.CacheBytes.end(),
                    [](const auto& bytes) { return bytes.value_or(0) != 0; }));
  const std::uint64_t height = 40 + rows * (kCore + 2) + (isEmpty ? 0 : levels * kBar);
  const std::string said =
      isEmpty ? "empty"
              : Sentence(", ", {TextOfFirmware(processor.Version),
                                Count(processor.Cores, "core", "cores"), TextOfCaches(processor)});
  html.Open("li");
  OpenDrawing(html, kWidth, height, Join({socket, ": ", said}));
  DrawBox(html, isEmpty ? "none" : "frame", {1, 1, kWidth - 2, height - 2});
  DrawText(html, "big", kLeft, 24,
           isEmpty           ? "empty"
           : processor.Cores ? Count(processor.Cores, "core", "cores")
                             : "processor");
  for (std::uint64_t core = 0; core < cores; ++core) {
    const bool isEnabled = !processor.CoresEnabled || core < *processor.CoresEnabled;
    DrawBox(html, isEnabled ? "full" : "none",
            {kLeft + core % kCoresInRow * (kCore + 2), 34 + core / kCoresInRow * (kCore + 2), kCore,
             kCore});
  }
  std::uint64_t top = 34 + rows * (kCore + 2);
  for (std::size_t level = 0; level < kLevels.size() && !isEmpty; ++level) {
    const std::uint64_t bytes = processor.CacheBytes[level].value_or(0);
    if (bytes != 0) {
      const auto doublings = static_cast<std::uint64_t>(std::bit_width(bytes));
      const std::uint64_t wide =
          doublings > kSmallest
              ? std::min((doublings - kSmallest) * kDoubling, kWidth - kBarLeft - kLeft)
              : 2;
      DrawBox(html, "full", {kBarLeft, top + 2, wide, kBar - 4});
      DrawText(html, "small", kLeft, top + 16, Join({kLevels[level], " ", TextOfSize(bytes)}));
      top += kBar;
    }
  }
  html.Close();
  html.Element("p", {}, [&] {
    html.TextElement("b", socket);
    const std::string speed =
        processor.MaximumSpeedMegahertz
            ? Join({"up to ", Decimal(*processor.MaximumSpeedMegahertz), " MHz"})
            : std::string();
    const std::string text =
        isEmpty ? "empty"
                : Sentence(", ", {TextOfFirmware(processor.Version),
                                  Count(processor.Threads, "thread", "threads"), speed});
    html.Text(text.empty() ? "" : ": ");
    html.Text(text);
  });
  html.Close();
  html.EndLine();
}

}  // namespace

void DrawProcessors(HtmlWriter& html, const Overview& overview) {
  std::vector<ProcessorFacts> processors;
  std::uint64_t count = 0;
  overview.ForEachProcessor([&](const ProcessorFacts& processor) {
    if (count++ < kMostDrawn) {
      processors.push_back(processor);
    }
  });
  if (processors.empty()) {
    return;
  }
  html.Element("section", {}, [&] {
    html.TextElement("h2", "Processors");
    html.Open("figure");
    html.Open("ul", {{"class", "row"}});
    for (const ProcessorFacts& processor : processors) {
      DrawSocket(html, processor);
    }
    html.Close();
    html.TextElement("figcaption",
                     "A square for each core; caches by logarithm: each doubling is as wide as the "
                     "one before.");
    html.Close();
    NoteRest(html, count, "sockets");
  });
}

namespace {

// The address map

// A range of addresses, with its last byte.
struct AddressRange {
  std::uint64_t First;
  std::uint64_t Last;
  // The array or the device that answers there; nullptr where the table has none of that handle.
  const Structure* Owner;
  bool IsDevice;
  // Whether devices share the range in turns.
  bool IsInterleaved;
};

std::optional<AddressRange> RangeOf(const Structure& structure, const HandleNames& names) {
  constexpr std::uint8_t kArrayAddress = 19;
  constexpr std::uint8_t kDeviceAddress = 20;
  if (structure.Type != kArrayAddress && structure.Type != kDeviceAddress) {
    return std::nullopt;
  }
  const StructureFields fields(structure);
  const bool isDevice = structure.Type == kDeviceAddress;
  const auto first = fields.GetQuantity("starting_address_bytes");
  const auto last = fields.GetQuantity("ending_address_bytes");
  const auto handle = fields.GetNumber(isDevice ? "memory_device_handle" : "memory_array_handle");
  if (!first || !last || !handle || *first > *last) {
    return std::nullopt;
  }
  const std::uint64_t position = fields.GetNumber("interleave_position").value_or(0);
  return AddressRange{.First = *first,
                      .Last = *last,
                      .Owner = names.Find(static_cast<std::uint16_t>(*handle)),
                      .IsDevice = isDevice,
                      .IsInterleaved = position != 0};
}

// Addresses between two neighbouring edges of ranges, and who answers there.
struct AddressSegment {
  std::uint64_t First;
  std::uint64_t Last;
  std::size_t Arrays = 0;
  std::size_t Devices = 0;
  std::size_t Interleaved = 0;
  // The first few of them.
  std::vector<const AddressRange*> Some = {};
};

// The first segments from 0 up. `ranges` are in the order of their first addresses.
std::vector<AddressSegment> SegmentsOf(const std::vector<AddressRange>& ranges) {
  constexpr std::size_t kMostNamed = 8;
  std::vector<AddressSegment> segments;
  // Ranges that have begun, by their ends.
  std::multimap<std::uint64_t, const AddressRange*> open;
  AddressSegment counts = {.First = 0, .Last = 0};
  auto next = ranges.begin();
  for (std::uint64_t address = 0; segments.size() < kMostDrawn;) {
    for (; next != ranges.end() && next->First == address; ++next) {
      open.emplace(next->Last, &*next);
      ++(next->IsDevice ? counts.Devices : counts.Arrays);
      counts.Interleaved += next->IsInterleaved ? 1 : 0;
    }
    if (open.empty() && next == ranges.end()) {
      break;
    }
    std::uint64_t last = open.empty() ? next->First - 1 : open.begin()->first;
    if (next != ranges.end()) {
      last = std::min(last, next->First - 1);
    }
    counts.First = address;
    counts.Last = last;
    AddressSegment& segment = segments.emplace_back(counts);
    for (auto range = open.begin(); range != open.end() && segment.Some.size() < kMostNamed;
         ++range) {
      segment.Some.push_back(range->second);
    }
    std::stable_sort(segment.Some.begin(), segment.Some.end(),
                     [](const AddressRange* left, const AddressRange* right) {
                       return left->IsDevice < right->IsDevice;
                     });
    while (!open.empty() && open.begin()->first == last) {
      const AddressRange& range = *open.begin()->second;
      --(range.IsDevice ? counts.Devices : counts.Arrays);
      counts.Interleaved -= range.IsInterleaved ? 1 : 0;
      open.erase(open.begin());
    }
    if (last == ~std::uint64_t{0}) {
      break;
    }
    address = last + 1;
  }
  return segments;
}

std::string TextOfAddress(std::uint64_t address) {
  constexpr std::size_t kDigits = 8;
  return Join({Hex(address, kDigits), "h"});
}

// What is odd about who answers in the segment.
std::string OddityOf(const AddressSegment& segment) {
  if (segment.Arrays == 0 && segment.Devices == 0) {
    return "gap";
  }
  const bool isShared = segment.Devices > 1 && segment.Interleaved < segment.Devices;
  return segment.Arrays > 1 || isShared ? "overlap" : "";
}

void WriteOwners(HtmlWriter& html, const AddressSegment& segment, HandleNames& names) {
  std::string_view separator;
  for (const AddressRange* range : segment.Some) {
    html.Text(std::exchange(separator, "; "));
    html.Text(range->Owner != nullptr ? std::string_view(names.NameOf(*range->Owner))
                                      : std::string_view("no structure"));
  }
  const std::size_t all = segment.Arrays + segment.Devices;
  if (all > segment.Some.size()) {
    html.Text(Join({" and ", Decimal(all - segment.Some.size()), " more"}));
  }
  if (segment.Interleaved > 1) {
    html.Text(" (interleaved)");
  }
}

// What fits into the drawing of the names of the devices, or of the arrays where there are none.
std::string ShortOwners(const AddressSegment& segment, HandleNames& names) {
  constexpr std::size_t kMostLetters = 40;
  constexpr std::string_view kDevice = "Memory Device, ";
  std::string owners;
  for (const AddressRange* range : segment.Some) {
    if (range->Owner != nullptr && range->IsDevice == (segment.Devices != 0)) {
      std::string_view name = names.NameOf(*range->Owner);
      name.remove_prefix(name.starts_with(kDevice) ? kDevice.size() : 0);
      Append(owners, {owners.empty() ? "" : ", ", name});
    }
  }
  if (owners.size() > kMostLetters) {
    std::size_t end = kMostLetters;
    while (end != 0 && (static_cast<unsigned char>(owners[end]) & 0xC0) == 0x80) {
      --end;
    }
    owners.replace(end, std::string::npos, "…");
  }
  return owners;
}

std::string TextOfSegmentSize(const AddressSegment& segment) {
  const std::uint64_t size = segment.Last - segment.First + 1;
  return size != 0 ? TextOfSize(size) : "16 EiB";
}

}  // namespace

void DrawAddressMap(HtmlWriter& html, const catalog::TableScan& scan, HandleNames& names) {
  std::vector<AddressRange> ranges;
  for (const Structure& structure : scan.Structures) {
    if (const auto range = RangeOf(structure, names)) {
      ranges.push_back(*range);
    }
  }
  if (ranges.empty()) {
    return;
  }
  std::stable_sort(
      ranges.begin(), ranges.end(),
      [](const AddressRange& left, const AddressRange& right) { return left.First < right.First; });
  const std::vector<AddressSegment> segments = SegmentsOf(ranges);
  constexpr std::uint64_t kWidth = 320;
  constexpr std::uint64_t kDoubling = 3;
  const auto heightOf = [](const AddressSegment& segment) {
    const auto doublings = static_cast<std::uint64_t>(std::bit_width(segment.Last - segment.First));
    return 40 + kDoubling * (doublings > 20 ? doublings - 20 : 0);
  };
  std::uint64_t height = 2;
  for (const AddressSegment& segment : segments) {
    height += heightOf(segment);
  }
  html.Element("section", {}, [&] {
    html.TextElement("h2", "Address map");
    html.Open("figure");
    OpenDrawing(html, kWidth, height, "Which memory answers at which addresses, from 0 up");
    std::uint64_t top = 1;
    for (const AddressSegment& segment : segments) {
      const std::uint64_t tall = heightOf(segment);
      const std::string oddity = OddityOf(segment);
      DrawBox(html,
              oddity == "gap"  ? "none"
              : oddity.empty() ? "shade"
                               : "bad",
              {1, top, kWidth - 2, tall});
      DrawText(html, "small", 10, top + 16,
               Sentence(", ", {TextOfAddress(segment.First), TextOfSegmentSize(segment), oddity}));
      DrawText(html, "small", 10, top + 33, ShortOwners(segment, names));
      top += tall;
    }
    html.Close();
    html.TextElement("figcaption", "Heights by logarithm, from 1 MiB up.");
    html.Close();
    html.Element("div", {{"class", "wide"}}, [&] {
      html.Open("table", {{"class", "map"}});
      html.TextElement("caption", "Addresses");
      html.Open("tr");
      for (const std::string_view title : {"From", "To", "Size", "Memory"}) {
        html.TextElement("th", title, {{"scope", "col"}});
      }
      html.Close();
      for (const AddressSegment& segment : segments) {
        html.Element("tr", {}, [&] {
          html.TextElement("td", TextOfAddress(segment.First));
          html.TextElement("td", TextOfAddress(segment.Last));
          html.TextElement("td", TextOfSegmentSize(segment));
          html.Element("td", {}, [&] {
            WriteOwners(html, segment, names);
            const std::string oddity = OddityOf(segment);
            html.Text(segment.Some.empty() || oddity.empty() ? "" : ": ");
            html.Text(oddity);
          });
        });
        html.EndLine();
      }
      html.Close();
    });
    if (segments.size() == kMostDrawn) {
      html.TextElement("p", "What lies above is left out.", {{"class", "note"}});
    }
  });
}

}  // namespace kestrel
