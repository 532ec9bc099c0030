/* Uses the installed library; where there are no tables, it is closed all the same. */
#include <kestrel.h>
#include <stdio.h>

int main(void) {
  char text[64];
  if (OpenSMBios() && ReadSMObjects()) {
    SMObjsToString(sizeof text, text);
  }
  puts(CloseSMBios() ? "closed" : "no reader");
  return 0;
}
