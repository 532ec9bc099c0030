#include "physical_window.h"

static const PhysicalWindow kNothingNoted = {{0, 0}, 0};

static Unsigned32 LittleEndian(const unsigned char* bytes) {
  return bytes[0] | (Unsigned32)bytes[1] << 8 | (Unsigned32)bytes[2] << 16 |
         (Unsigned32)bytes[3] << 24;
}

static int IsAllowed(const PhysicalWindow* window) {
  const PhysicalRange* noted = &window->Noted;
  return window->IsAddressNoted && noted->Length != 0 &&
         noted->Length - 1 <= 0xFFFFFFFFu - noted->Address;
}

static WindowAnswer NoteLength(PhysicalWindow* window, Unsigned32 length) {
  if (length == 0 || length > WINDOW_LARGEST_LENGTH) {
    *window = kNothingNoted;
    return WindowWrongRange;
  }
  window->Noted.Length = length;
  return WindowNoted;
}

static WindowAnswer TakeRange(PhysicalWindow* window, Unsigned32 outputLength,
                              PhysicalRange* range) {
  const PhysicalWindow taken = *window;
  *window = kNothingNoted;
  if (!IsAllowed(&taken)) {
    return WindowWrongRange;
  }
  if (outputLength != taken.Noted.Length) {
    return WindowWrongBuffer;
  }
  *range = taken.Noted;
  return WindowCopy;
}

WindowAnswer AnswerWindowRequest(PhysicalWindow* window, Unsigned32 code, const void* input,
                                 Unsigned32 inputLength, Unsigned32 outputLength,
                                 PhysicalRange* range) {
  const int isNote = inputLength == 4 && outputLength == 0;
  switch (code) {
    case WINDOW_NOTE_ADDRESS:
      if (!isNote) {
        return WindowWrongBuffer;
      }
      window->Noted.Address = LittleEndian(input);
      window->IsAddressNoted = 1;
      return WindowNoted;
    case WINDOW_NOTE_LENGTH:
      return isNote ? NoteLength(window, LittleEndian(input)) : WindowWrongBuffer;
    case WINDOW_COPY_MEMORY:
      return inputLength == 0 ? TakeRange(window, outputLength, range) : WindowWrongBuffer;
    default:
      return WindowUnknownCode;
  }
}

PhysicalView ViewOfRange(const PhysicalRange* range, Unsigned32 granularity) {
  PhysicalView view;
  view.Skip = range->Address & (granularity - 1);
  view.Start = range->Address - view.Skip;
  view.Size = view.Skip + range->Length;
  return view;
}

void CopyBytes(unsigned char* to, const volatile unsigned char* from, Unsigned32 length) {
  Unsigned32 index;
  for (index = 0; index < length; ++index) {
    to[index] = from[index];
  }
}
