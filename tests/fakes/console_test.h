#pragma once

#include "fakes/console_bench.h"
#include "fakes/matchers.h"

namespace trunvex {

using fakes::ConsoleBench, fakes::contentOf, fakes::seeded;

}  // namespace trunvex
