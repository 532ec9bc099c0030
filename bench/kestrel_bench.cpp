// Times the walk, the report and the MIF document, the scan and the JSON document over tables of
// several sizes, and every command over tables that are made to take long: their time per byte of
// the table does not grow with it.
//
// Of each it prints the time, the time per byte of the table and of the text, the bytes per second
// of both, the size of the text, and how often a memcpy of the text would fit into the time,
// measured in the same run: warm, from cache to cache, and cold, through memory. The ratios are
// what is worth comparing from machine to machine.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <utility>
#include <vector>

#include "catalog/structure_scan.h"
#include "firmware/entry_point.h"
#include "firmware/table_firmware.h"
#include "model/smbios_reader.h"
#include "sample/sample_table.h"
#include "sample/table_builder.h"
#include "tools/kestrel/commands.h"

namespace {

using kestrel::SMBiosReader;
using Clock = std::chrono::steady_clock;
using Table = std::vector<std::uint8_t>;

constexpr std::size_t kLargerThanCaches = 256UL * 1024UL * 1024UL;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// The sample's structures again and again, cut at `size` bytes.
Table MixedTable(std::size_t size) {
  const Table sample = kestrel::MakeSampleTable();
  // A string set that is not empty, so that the next sample's first byte is not taken for padding.
  constexpr std::string_view kStrings[] = {"x"};
  Table table;
  while (table.size() < size) {
    table.insert(table.end(), sample.begin(), sample.end());
    kestrel::AppendStructure(table, 200, 0, {}, kStrings);
  }
  table.resize(size);
  return table;
}

// Structures of one type, all of them with the same fields.
Table UniformTable(std::uint8_t type, const Table& fields,
                   std::span<const std::string_view> strings) {
  Table table;
  while (table.size() + 600 < kestrel::kLongestTable) {
    kestrel::AppendStructure(table, type, 0, fields, strings);
  }
  return table;
}

Table Filled(Table fields, std::size_t size) {
  fields.resize(size, 0x11);
  return fields;
}

// The mean time of one memcpy of a text of `size` bytes, from and to ever other places within
// `room` bytes: warm where the room is no larger than the text and its copy, cold where it is
// larger than any cache.
double SecondsOfCopy(std::size_t size, std::size_t room) {
  constexpr std::size_t kRounds = 200;
  std::vector<char> copies(std::max(room, 2 * size), 'x');
  const std::size_t places = copies.size() / size - 1;
  const auto start = Clock::now();
  for (std::size_t round = 0; round < kRounds; ++round) {
    char* source = copies.data() + round % places * size;
    std::memcpy(source + size, source, size);
    benchmark::ClobberMemory();
  }
  return SecondsSince(start) / kRounds;
}

// Runs `work`, which gives the size of the text that it made.
template <typename Work>
void Measure(benchmark::State& state, std::size_t tableSize, Work work) {
  std::size_t textSize = 0;
  const auto start = Clock::now();
  for (auto _ : state) {
    textSize = work();
  }
  const double seconds = SecondsSince(start) / static_cast<double>(state.iterations());
  state.counters["ns/table byte"] = seconds * 1e9 / static_cast<double>(tableSize);
  state.counters["table bytes/s"] = static_cast<double>(tableSize) / seconds;
  if (textSize != 0) {
    state.counters["text bytes"] = static_cast<double>(textSize);
    state.counters["ns/text byte"] = seconds * 1e9 / static_cast<double>(textSize);
    state.counters["text bytes/s"] = static_cast<double>(textSize) / seconds;
  }
  if (textSize != 0 && textSize <= kLargerThanCaches / 2) {
    state.counters["warm copies"] = seconds / SecondsOfCopy(textSize, 0);
    state.counters["cold copies"] = seconds / SecondsOfCopy(textSize, kLargerThanCaches);
  }
}

// An access that gives a reader the version of the newer layouts; the tables are walked without it.
std::unique_ptr<kestrel::FirmwareAccess> EmptyTable() {
  return std::make_unique<kestrel::TableFirmware>(kestrel::kSampleVersion, Table());
}

std::size_t Walk(const Table& table) {
  SMBiosReader reader(EmptyTable());
  reader.FindEntryPoint();
  reader.WalkTable(table);
  benchmark::DoNotOptimize(reader.GetObjects().data());
  return 0;
}

std::size_t Report(const SMBiosReader& reader) {
  const std::string text = reader.BuildTextReport();
  benchmark::DoNotOptimize(text.data());
  return text.size();
}

std::size_t Document(const SMBiosReader& reader) {
  const std::string text = reader.ObjsToMifString();
  benchmark::DoNotOptimize(text.data());
  return text.size();
}

std::size_t Everything(const Table& table) {
  SMBiosReader reader(EmptyTable());
  reader.FindEntryPoint();
  reader.WalkTable(table);
  return Report(reader) + Document(reader);
}

Table MixedTableOf(const benchmark::State& state) {
  return MixedTable(
      std::min(static_cast<std::size_t>(state.range(0)) * 1024, kestrel::kLongestTable));
}

void TimeWalk(benchmark::State& state) {
  const Table table = MixedTableOf(state);
  Measure(state, table.size(), [&] { return Walk(table); });
}

void TimeReport(benchmark::State& state) {
  const Table table = MixedTableOf(state);
  SMBiosReader reader(EmptyTable());
  reader.FindEntryPoint();
  reader.WalkTable(table);
  Measure(state, table.size(), [&] { return Report(reader); });
}

void TimeDocument(benchmark::State& state) {
  const Table table = MixedTableOf(state);
  SMBiosReader reader(EmptyTable());
  reader.FindEntryPoint();
  reader.WalkTable(table);
  Measure(state, table.size(), [&] { return Document(reader); });
}

void TimeEverything(benchmark::State& state) {
  const Table table = MixedTableOf(state);
  Measure(state, table.size(), [&] { return Everything(table); });
}

// Tables of any length, for what does not go through a 32-bit entry point.
kestrel::SmbiosTable LongTable(std::size_t kilobytes) {
  kestrel::SmbiosTable table;
  table.EntryPoint.Version = kestrel::kSampleVersion;
  table.Bytes = MixedTable(kilobytes * 1024);
  return table;
}

// Counts what a command writes.
class CountingOutput : public kestrel::Output {
 public:
  std::size_t GetSize() const { return Size; }

 private:
  void Pass(std::string_view bytes) override { Size += bytes.size(); }

  std::size_t Size = 0;
};

const kestrel::Command& CommandNamed(std::string_view name) {
  const auto commands = kestrel::GetCommands();
  return *std::find_if(commands.begin(), commands.end(),
                       [&](const kestrel::Command& command) { return command.Name == name; });
}

kestrel::CommandLine LineOf(const kestrel::Command& command) {
  kestrel::CommandLine line;
  line.Chosen = &command;
  return line;
}

// The size of what the command writes.
std::size_t Run(const kestrel::CommandLine& line, const kestrel::SmbiosTable& table) {
  std::vector<std::string> warnings;
  kestrel::CommandRun run = {.Line = line, .Table = table, .Warnings = warnings};
  CountingOutput output;
  line.Chosen->Run(run, output);
  output.Finish();
  return output.GetSize();
}

void TimeScan(benchmark::State& state) {
  const kestrel::SmbiosTable table = LongTable(static_cast<std::size_t>(state.range(0)));
  Measure(state, table.Bytes.size(), [&] {
    benchmark::DoNotOptimize(kestrel::catalog::ScanTable(table).Structures.data());
    return std::size_t{0};
  });
}

// Half of it tiny structures and half of it lists of handles, all of which are 0.
kestrel::SmbiosTable HostileTable(std::size_t kilobytes) {
  const std::size_t size = kilobytes * 1024;
  Table slots = {6, 8, 3, 3, 9, 12, 0, 0, 5, 2, 120};
  slots.resize(slots.size() + 240);
  kestrel::SmbiosTable table;
  table.EntryPoint.TableLength = static_cast<std::uint32_t>(size);
  // BIOS Information, without which a command refuses the table.
  kestrel::AppendStructure(table.Bytes, 0, 0, Table(14), {});
  while (table.Bytes.size() < size / 2) {
    kestrel::AppendStructure(table.Bytes, 200, 0, {}, {});
  }
  while (table.Bytes.size() < size) {
    kestrel::AppendStructure(table.Bytes, 5, 0, slots, {});
  }
  table.Bytes.resize(size);
  return table;
}

void TimeCommand(benchmark::State& state, const kestrel::CommandLine& line,
                 kestrel::SmbiosTable (*makeTable)(std::size_t)) {
  const kestrel::SmbiosTable table = makeTable(static_cast<std::size_t>(state.range(0)));
  Measure(state, table.Bytes.size(), [&] { return Run(line, table); });
}

// Announced counts that are true, or the same counts without entries.
void TimeCounts(benchmark::State& state, std::uint8_t type, const Table& fields,
                const std::vector<std::string_view>& strings) {
  const Table table = UniformTable(type, fields, strings);
  Measure(state, table.size(), [&] { return Everything(table); });
}

void RegisterBenchmarks() {
  for (const auto& [name, function] : {std::pair{"walk", &TimeWalk},
                                       {"report", &TimeReport},
                                       {"document", &TimeDocument},
                                       {"everything", &TimeEverything}}) {
    benchmark::RegisterBenchmark(name, function)->Arg(1)->Arg(4)->Arg(16)->Arg(64);
  }
  benchmark::RegisterBenchmark("scan", TimeScan)->Arg(4)->Arg(64)->Arg(1024)->Arg(16384);
  const auto time = [](const std::string& name, const kestrel::CommandLine& line, auto makeTable) {
    return benchmark::RegisterBenchmark(
        name.c_str(), [=](benchmark::State& state) { TimeCommand(state, line, makeTable); });
  };
  for (const char* name : {"json", "json --lines", "check"}) {
    const std::string_view words = name;
    kestrel::CommandLine line = LineOf(CommandNamed(words.substr(0, words.find(' '))));
    line.Lines = words.ends_with("--lines");
    time(name, line, LongTable)->Arg(4)->Arg(64)->Arg(1024)->Arg(16384);
  }
  for (const kestrel::Command& command : kestrel::GetCommands()) {
    time(std::string("hostile ") + command.Name, LineOf(command), HostileTable)
        ->Arg(64)
        ->Arg(1024)
        ->Arg(16384)
        ->Unit(benchmark::kMillisecond);
  }
  // Memory Controller, OEM Strings and Memory Channel: the count at its place, then the list.
  const std::vector<std::string_view> strings(255, "x");
  const auto counts = [](const char* name, std::uint8_t type, const Table& fields,
                         const std::vector<std::string_view>& texts) {
    benchmark::RegisterBenchmark(
        name, [=](benchmark::State& state) { TimeCounts(state, type, fields, texts); });
  };
  const Table slots = {6, 8, 3, 3, 9, 12, 0, 0, 5, 2, 120};
  counts("honest slots", 5, Filled(slots, 11 + 240), {});
  counts("lying slots", 5, slots, {});
  counts("honest strings", 11, {255}, strings);
  counts("lying strings", 11, {255}, {});
  counts("honest devices", 37, Filled({2, 16, 80}, 3 + 240), {});
  counts("lying devices", 37, {2, 16, 80}, {});
}

long PeakKilobytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace

int main(int argc, char** argv) {
  const long idle = PeakKilobytes();
  Everything(MixedTable(kestrel::kLongestTable));
  std::cout << "memory for everything of 64 KiB, above the idle process: " << PeakKilobytes() - idle
            << " KiB\n";
  const kestrel::CommandLine json = LineOf(CommandNamed("json"));
  for (const std::size_t kilobytes : {4U, 64U, 1024U, 16U * 1024U}) {
    // A peak only grows, so that the sizes come in order.
    const long before = PeakKilobytes();
    const std::size_t size = Run(json, LongTable(kilobytes));
    std::cout << "memory for JSON of " << kilobytes << " KiB, " << size / 1024
              << " KiB of text, above what went before: " << PeakKilobytes() - before << " KiB\n";
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  RegisterBenchmarks();
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
