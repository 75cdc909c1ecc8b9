// The store speaks of appointments in the words of their rules.
#pragma once

#include "host/rules/stored_item.h"

namespace tavo::outlook {

using namespace rules;

} // namespace tavo::outlook
