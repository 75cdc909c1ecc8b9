// The program's state.
#include "store/program_state.h"

namespace tavo {

void CProgramState::SetFebruary(int year) {
    DaysInMonth[1] = IsLeapYear(year) ? 29 : 28;
}

} // namespace tavo
