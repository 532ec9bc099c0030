#include "runtime/throw.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "platform/win32.h"

// A throw walks up the calling functions by the tables that the compiler makes of them: .eh_frame
// tells where a function keeps the registers of its caller (DWARF, "Call Frame Information"), and
// .gcc_except_table where it goes on when one of its calls throws. Of the many forms that these
// tables have, only those that the compiler writes here are read; at any other the process ends.

static_assert(sizeof(void*) == 4, "for 32-bit x86 alone");

extern "C" const IMAGE_DOS_HEADER __ImageBase;

namespace {

using Address = std::uint32_t;

// The numbers of the registers in the tables: the general ones, then where execution goes on.
constexpr std::size_t kEax = 0;
constexpr std::size_t kEsp = 4;
constexpr std::size_t kEip = 8;
constexpr std::size_t kRegisterCount = 9;

struct Registers {
  Address Values[kRegisterCount];
};

// How addresses are written: as their signed distance from where they stand.
constexpr std::uint8_t kDistance = 0x1B;
constexpr std::uint8_t kDistanceToPointer = 0x9B;
constexpr std::uint8_t kNoAddress = 0xFF;
// How numbers are written: seven bits to the byte, the lowest first.
constexpr std::uint8_t kSevenBits = 0x01;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

template <typename Integer>
Integer Load(Address address) {
  Integer value;
  std::memcpy(&value, reinterpret_cast<const void*>(address), sizeof(value));
  return value;
}

// A stretch of a table that is being read.
struct Cursor {
  Address At;
  Address End;

  bool IsAtEnd() const { return At >= End; }

  template <typename Integer = std::uint8_t>
  Integer Take() {
    const auto value = Load<Integer>(At);
    At += sizeof(Integer);
    return value;
  }

  std::int32_t Signed() { return Number(true); }
  std::uint32_t Unsigned() { return static_cast<std::uint32_t>(Number(false)); }

  Address TakeAddress() {
    const Address start = At;
    return start + Take<Address>();
  }

 private:
  std::int32_t Number(bool isSigned) {
    std::uint32_t value = 0;
    unsigned shift = 0;
    std::uint8_t byte = 0;
    do {
      byte = Take();
      value |= (byte & 0x7FU) << shift;
      shift += 7;
    } while ((byte & 0x80U) != 0);
    if (isSigned && (byte & 0x40U) != 0 && shift < 32) {
      value |= ~0U << shift;
    }
    return static_cast<std::int32_t>(value);
  }
};

// What the tables tell of a function.
struct Function {
  Address Start;
  Address Size;
  // 0 when a throw only passes through.
  Address ExceptionTable;
  std::uint32_t CodeUnit;
  std::int32_t DataUnit;
  // How its frame is built, first what it has in common with others.
  Cursor CommonFrame;
  Cursor OwnFrame;
};

Cursor FrameTable() {
  const auto base = reinterpret_cast<Address>(&__ImageBase);
  const auto headers = base + static_cast<Address>(__ImageBase.e_lfanew);
  const auto* image = reinterpret_cast<const IMAGE_NT_HEADERS32*>(headers);
  const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(image);
  for (unsigned index = 0; index < image->FileHeader.NumberOfSections; ++index, ++section) {
    if (std::memcmp(section->Name, ".eh_fram", sizeof(section->Name)) == 0) {
      const Address start = base + section->VirtualAddress;
      return {start, start + section->Misc.VirtualSize};
    }
  }
  std::abort();
}

// Reads what functions have in common; tells whether they have exception tables.
bool ReadCommonEntry(Address entry, Function& function) {
  Cursor cursor{entry, 0};
  const auto length = cursor.Take<std::uint32_t>();
  cursor.End = cursor.At + length;
  cursor.Take<std::uint32_t>();
  Require(cursor.Take() == 1);
  Cursor letters = cursor;
  while (cursor.Take() != 0) {
  }
  function.CodeUnit = cursor.Unsigned();
  function.DataUnit = cursor.Signed();
  Require(cursor.Unsigned() == kEip);
  Require(letters.Take() == 'z');
  const std::uint32_t size = cursor.Unsigned();
  function.CommonFrame = {cursor.At + size, cursor.End};
  bool hasExceptionTables = false;
  for (std::uint8_t letter = letters.Take(); letter != 0; letter = letters.Take()) {
    const std::uint8_t form = cursor.Take();
    if (letter == 'P') {
      // The routine that interprets exception tables. There is only one.
      Require(form == kDistance || form == kDistanceToPointer);
      cursor.TakeAddress();
    } else {
      Require((letter == 'L' || letter == 'R') && form == kDistance);
      hasExceptionTables = hasExceptionTables || letter == 'L';
    }
  }
  return hasExceptionTables;
}

bool FindFunction(Address place, Function& function) {
  Cursor table = FrameTable();
  while (!table.IsAtEnd()) {
    const auto length = table.Take<std::uint32_t>();
    Cursor entry{table.At, table.At + length};
    table.At = entry.End;
    const Address backwardsFrom = entry.At;
    const std::uint32_t backwards = length != 0 ? entry.Take<std::uint32_t>() : 0;
    if (backwards == 0) {
      continue;
    }
    function.Start = entry.TakeAddress();
    function.Size = entry.Take<std::uint32_t>();
    if (place - function.Start < function.Size) {
      const bool hasExceptionTable = ReadCommonEntry(backwardsFrom - backwards, function);
      const std::uint32_t size = entry.Unsigned();
      function.OwnFrame = {entry.At + size, entry.End};
      function.ExceptionTable = hasExceptionTable ? entry.TakeAddress() : 0;
      return true;
    }
  }
  return false;
}

// Where, at some place in a function, the registers of its caller are.
struct Frame {
  // The caller's stack pointer is so far from a register.
  std::uint32_t Base;
  std::uint32_t BaseOffset;
  // The caller's value of a register is so far from the caller's stack pointer, or still in place.
  bool IsSaved[kRegisterCount];
  std::int32_t SavedAt[kRegisterCount];
};

// Carries out the instructions that hold at `place`. Gives the bytes of arguments that lie on the
// stack there.
std::uint32_t BuildFrame(const Function& function, Address place, Frame& frame) {
  Frame remembered[4];
  std::size_t rememberedCount = 0;
  std::uint32_t argumentBytes = 0;
  frame = {};
  for (Cursor cursor : {function.CommonFrame, function.OwnFrame}) {
    const Frame initial = frame;
    Address reached = function.Start;
    while (!cursor.IsAtEnd() && reached <= place) {
      const std::uint8_t instruction = cursor.Take();
      const std::uint8_t low = instruction & 0x3FU;
      switch (instruction & 0xC0U) {
        case 0x40:  // advance
          reached += low * function.CodeUnit;
          continue;
        case 0x80:  // offset
          Require(low < kRegisterCount);
          frame.IsSaved[low] = true;
          frame.SavedAt[low] = static_cast<std::int32_t>(cursor.Unsigned()) * function.DataUnit;
          continue;
        case 0xC0:  // restore
          Require(low < kRegisterCount);
          frame.IsSaved[low] = initial.IsSaved[low];
          frame.SavedAt[low] = initial.SavedAt[low];
          continue;
        default:
          break;
      }
      switch (instruction) {
        case 0x00:  // nothing
          break;
        case 0x02:  // advance, by a byte
          reached += cursor.Take() * function.CodeUnit;
          break;
        case 0x03:  // advance, by two bytes
          reached += cursor.Take<std::uint16_t>() * function.CodeUnit;
          break;
        case 0x04:  // advance, by four bytes
          reached += cursor.Take<std::uint32_t>() * function.CodeUnit;
          break;
        case 0x0A:  // remember
          Require(rememberedCount < std::size(remembered));
          remembered[rememberedCount++] = frame;
          break;
        case 0x0B:  // go back to what was remembered
          Require(rememberedCount > 0);
          frame = remembered[--rememberedCount];
          break;
        case 0x0C:  // base
          frame.Base = cursor.Unsigned();
          frame.BaseOffset = cursor.Unsigned();
          Require(frame.Base < kRegisterCount);
          break;
        case 0x0D:  // register of the base
          frame.Base = cursor.Unsigned();
          Require(frame.Base < kRegisterCount);
          break;
        case 0x0E:  // offset of the base
          frame.BaseOffset = cursor.Unsigned();
          break;
        case 0x2E:  // arguments
          argumentBytes = cursor.Unsigned();
          break;
        default:
          std::abort();
      }
    }
  }
  return argumentBytes;
}

// From the registers of a function to those of its caller, at the place of the call.
Registers CallerOf(const Registers& registers, const Frame& frame) {
  const Address base = registers.Values[frame.Base] + frame.BaseOffset;
  Registers caller = registers;
  for (std::size_t index = 0; index < kRegisterCount; ++index) {
    if (frame.IsSaved[index]) {
      caller.Values[index] = Load<Address>(base + static_cast<Address>(frame.SavedAt[index]));
    }
  }
  caller.Values[kEsp] = base;
  return caller;
}

// Where a function goes on when the call at `place` throws; 0 when the throw passes through. What
// it does there depends on the place alone, never on what is thrown.
Address FindLandingPad(const Function& function, Address place) {
  if (function.ExceptionTable == 0) {
    return 0;
  }
  Cursor cursor{function.ExceptionTable, 0};
  Require(cursor.Take() == kNoAddress);
  if (cursor.Take() != kNoAddress) {
    // How far it is to the end of the types to be caught. The only one is that of everything.
    const std::uint32_t distance = cursor.Unsigned();
    Require(Load<Address>(cursor.At + distance - sizeof(Address)) == 0);
  }
  Require(cursor.Take() == kSevenBits);
  const std::uint32_t size = cursor.Unsigned();
  cursor.End = cursor.At + size;
  while (!cursor.IsAtEnd()) {
    const Address start = function.Start + cursor.Unsigned();
    const std::uint32_t length = cursor.Unsigned();
    const std::uint32_t pad = cursor.Unsigned();
    // What may be caught there. It is everything or nothing.
    cursor.Unsigned();
    if (place - start < length) {
      return pad != 0 ? function.Start + pad : 0;
    }
  }
  // No throw may leave here.
  std::abort();
}

}  // namespace

// Takes registers as they are behind a call that throws and changes them to those with which
// execution goes on, with the address of where it does on top of the stack.
extern "C" [[gnu::used]] void KestrelUnwind(Registers& registers) {
  for (;;) {
    // The last byte of the call, since what follows may belong to something else.
    const Address place = registers.Values[kEip] - 1;
    Function function{};
    // A throw never leaves the library.
    Require(FindFunction(place, function));
    Frame frame{};
    const std::uint32_t argumentBytes = BuildFrame(function, place, frame);
    const Address pad = FindLandingPad(function, place);
    if (pad != 0) {
      // Where an object of the exception is expected, any address will do.
      registers.Values[kEax] = function.Start;
      registers.Values[kEsp] += argumentBytes - sizeof(Address);
      std::memcpy(reinterpret_cast<void*>(registers.Values[kEsp]), &pad, sizeof(pad));
      return;
    }
    registers = CallerOf(registers, frame);
  }
}

// To throw, to go on after a cleanup and to throw again from a catch is all the same: to unwind
// from the call on. The registers are saved and loaded in the order of their numbers.
asm(R"(
  .text
  .globl _KestrelThrow, ___cxa_rethrow, __Unwind_Resume
_KestrelThrow:
___cxa_rethrow:
__Unwind_Resume:
  movl (%esp), %eax
  leal 4(%esp), %ecx
  subl $36, %esp
  movl %ebx, 12(%esp)
  movl %ecx, 16(%esp)
  movl %ebp, 20(%esp)
  movl %esi, 24(%esp)
  movl %edi, 28(%esp)
  movl %eax, 32(%esp)
  movl %esp, %eax
  pushl %eax
  call _KestrelUnwind
  addl $4, %esp
  movl %esp, %ecx
  movl 0(%ecx), %eax
  movl 12(%ecx), %ebx
  movl 20(%ecx), %ebp
  movl 24(%ecx), %esi
  movl 28(%ecx), %edi
  movl 16(%ecx), %esp
  ret
)");

extern "C" {

void* __cxa_begin_catch(void* exception) noexcept { return exception; }

void __cxa_end_catch() {}

// Named by the tables; KestrelUnwind does its work.
void __gxx_personality_v0() { std::abort(); }
}
