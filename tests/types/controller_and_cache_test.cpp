#include <gtest/gtest.h>

#include "tests/support/tables.h"

namespace kestrel {
namespace {

const Bytes kController = Structure(
    5, {8, 0xFF, 3, 7, 15, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 2, 0x06, 0x00, 0x06, 0x01, 0x3F});

TEST(Type5Test, NamesCodesAndListsHandles) {
  ExpectLines(
      kController,
      {
          {0x04,
           {1},
           "Error Detecting Method : Other\r\n"
           "\tError Correcting Capability : OtherUnknownNoneSingle Bit Error Correcting"
           "Double Bit Error CorrectingError Scrubbing"},
          {0x05,
           {0, 0, 0, 0},
           "Error Correcting Capability : \r\n\tSupport Interleave : Unknown\r\n\tCurrent "
           "Interleave : Unknown\r\n\tMax Memory Size : 1 MB"},
          {0x09, Bytes(5),
           "Support Speeds :\r\n\tSupport Memory Types : \r\n\tMemory Module Voltage : Unknown"},
          {0x04, {8}, "Error Detecting Method : CRC"},
          {0x04, {9}, "Error Detecting Method : Unknown"},
          {0x06,
           {1, 7},
           "Support Interleave : Other\r\n\tCurrent Interleave : Sixteen Way Interleave"},
          {0x07, {8}, "Current Interleave : Unknown"},
          {0x08, {16}, "Max Memory Size : 0 MB"},
          {0x08, {32}, "Max Memory Size : 0 MB"},
          {0x08,
           {15},
           "Max Memory Size : 32768 MB\r\n\tSupport Speeds : Other Unknown 70ns 60ns 50ns\r\n"
           "\tSupport Memory Types : Other,Unknown,Standard,Fast Page "
           "Mode,EDO,Parity,ECC,SIMM,DIMM,"
           "Burst EDO,SDRAM\r\n\tMemory Module Voltage : 5V"},
          {0x0D, {0x06}, "Memory Module Voltage : 3.3V"},
          {0x0D, {0xFC}, "Memory Module Voltage : 2.9V"},
          {0x0D, {0xF8}, "Memory Module Voltage : Unknown"},
          {0x0E, {0}, "Memory Module Configuration Handles :"},
          // The third reaches out of the formatted area.
          {0x0E, {3}, "Memory Module Configuration Handles : 06h 106h 3Fh"},
      });
}

const Bytes kModule =
    Structure(6, {1, 0xDE, 60, 0x01, 0x04, 0x05, 0x84, 3}, {"SIMM 0", "more than declared"});

TEST(Type6Test, NamesBanksAndStates) {
  ExpectLines(
      kModule,
      {
          {0x04, {2, 0x3F}, "Socket Designation : \r\n\tBank Connections : RAS3"},
          {0x05, {0xF3, 0}, "Bank Connections : RAS3\r\n\tCurrent Speed : 0 ns"},
          {0x05, {0xFF}, "Bank Connections :"},
          {0x09, {0x7F, 0x7C}, "Installed Size : Not Installed\r\n\tEnable Size : 0 MB"},
          {0x09, {0xFE}, "Installed Size : Module is installed, but no memory has been enabled"},
          {0x09, {0x85, 0xFD}, "Enable Size : Not determinable\r\n\tBank Connection : Double Bank"},
          {0x04,
           {1},
           "Bank Connections : RAS13 RAS14\r\n\tCurrent Speed : 60 ns\r\n\tCurrent Memory Type : "
           "Other,SDRAM"},
          {0x09,
           {5, 0x84},
           "Installed Size : 32 MB\r\n\tEnable Size : 16 MB\r\n\tBank Connection : Single Bank"},
          {0x0B, {3}, "Error Status : Uncorrectable errors and Correctable errors"},
          {0x0B, {2}, "Error Status : Correctable errors"},
          {0x0B, {0xFC}, "Error Status : "},
      });
}

const Bytes kCache = Structure(
    7, {1, 0xFF, 0xFF, 0x10, 0x80, 0x00, 0x02, 0x7F, 0x00, 0x24, 0xFF, 15, 6, 5, 8}, {"L2"});

TEST(Type7Test, NamesCodesAndSizes) {
  ExpectLines(
      kCache,
      {
          // The older layout: the string set begins with the fields that it lacks.
          {0x01, {0x0F}, "Socket Designation : \x0F\x06\x05\bL2"},
          {0x07,
           {0x10, 0x80, 0, 2},
           "Maximum Granularity : 64 K\r\n\tMaximum Cache Size : 1024 KB\r\n\tInstalled "
           "Granularity : 1 K"},
          {0x0B,
           {0x7F},
           "Supported SRAM Type : Other Unknown Non-Burst Burst Pipeline Burst Synchronous "
           "Asynchronous"},
          {0x0F, {15, 6}, "Cache Speed : 15 ns\r\n\tError Correction Type : Multi-bit ECC"},
          {0x05,
           {0xFF},
           "Location, relative to the CPU module : Unknown\r\n\tCache Socketed : Socketed"},
          {0x12, {8}, "Associativity : 16-way Set-Associative"},
          {0x05, {0x20}, "Location, relative to the CPU module : External"},
          {0x05, {0x40}, "Location, relative to the CPU module : Reserved"},
          {0x05, {0x80}, "Cache Memory : Enabled"},
          {0x05, {0x7F, 0xFD}, "Operational Mode : Write Back\r\n\tCache Memory : Disabled"},
          {0x05, {0xF7}, "Cache Socketed : Not Socketed\r\n\tCache Level : 8"},
          {0x06, {0xFE}, "Operational Mode : Varies with Memory Address"},
          {0x09, {0xFF, 0xFF}, "Installed Granularity : 64 K\r\n\tInstalled Size : 2097088 KB"},
          {0x10, {1, 1}, "Error Correction Type : Other\r\n\tSystem Cache Type : Other"},
          {0x10, {7, 6}, "Error Correction Type : \r\n\tSystem Cache Type : "},
          {0x12, {1}, "Associativity : Other"},
          {0x12, {9}, "Associativity : "},
      });
}

TEST(Type7Test, GivesItsRow) {
  ExpectMifRows(kCache, {
                            {0x05, {0xF8, 0xFC, 0, 0, 0x10, 0x80}, "{1,3,15,1024,4,6,0,0,5}"},
                            {0x05, {0x81, 0x01}, "{1,4,15,512,3,6,0,0,5}"},
                            {0x06, {0xFE}, "{1,10,15,512,1,6,0,0,5}"},
                        });
}

}  // namespace
}  // namespace kestrel
