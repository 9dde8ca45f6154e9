#pragma once

#include <gmock/gmock.h>

namespace trunvex {

using testing::ElementsAre, testing::HasSubstr, testing::IsEmpty, testing::Not;

}  // namespace trunvex
