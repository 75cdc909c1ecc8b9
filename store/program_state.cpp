// The length of February, which follows the year.
#include "store/program_state.h"

namespace tavo {

void CProgramState::SetFebruary(int year) {
    DaysInMonth[1] = IsLeapYear(year) ? 29 : 28;
}

} // namespace tavo
