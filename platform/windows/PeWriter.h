// Makes a minimal Windows module (a PE32 image with one ".rsrc" section)
// that holds the given resources: the module files of tools and tests that
// carry dialogs, menus and string tables without any code.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows/PeImage.h"

namespace tolv {

struct PeResourceData {
  ResName type;
  ResName name;
  std::uint16_t language = 0;
  std::string bytes;
};

std::string WritePeImage(const std::vector<PeResourceData> &resources);

}  // namespace tolv
