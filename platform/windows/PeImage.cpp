#include "platform/windows/PeImage.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

namespace tolv {

namespace {

constexpr std::uint32_t kResourceDirectoryIndex = 2;
// No real image has more; a larger count is damage.
constexpr std::uint16_t kMaxSections = 96;
// The resources of the largest real modules are a few thousand.
constexpr std::size_t kMaxResources = 1u << 20;

std::string_view View(const std::vector<std::uint8_t> &bytes) {
  return std::string_view(reinterpret_cast<const char *>(bytes.data()), bytes.size());
}

}  // namespace

bool ReadU16(std::string_view bytes, std::size_t at, std::uint16_t &value) {
  if (at > bytes.size() || bytes.size() - at < 2) return false;
  value = static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[at]) |
                                     (static_cast<unsigned char>(bytes[at + 1]) << 8));
  return true;
}

bool ReadU32(std::string_view bytes, std::size_t at, std::uint32_t &value) {
  if (at > bytes.size() || bytes.size() - at < 4) return false;
  value = 0;
  for (int i = 3; i >= 0; --i) value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
  return true;
}

bool PeImage::Load(const std::string &path, std::string &error, std::size_t maxBytes) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    error = "cannot be opened";
    return false;
  }
  in.seekg(0, std::ios::end);
  std::streamoff length = in.tellg();
  if (length < 0 || static_cast<std::uint64_t>(length) > maxBytes) {
    error = "is too large to be a module";
    return false;
  }
  in.seekg(0);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
  if (length > 0 && !in.read(reinterpret_cast<char *>(bytes.data()), length)) {
    error = "cannot be read";
    return false;
  }
  return Parse(std::move(bytes), error);
}

bool PeImage::Parse(std::vector<std::uint8_t> bytes, std::string &error) {
  bytes_ = std::move(bytes);
  sections_.clear();
  resources_.clear();
  damaged_ = 0;
  std::string_view b = View(bytes_);

  std::uint16_t mz = 0;
  std::uint32_t peOffset = 0;
  if (!ReadU16(b, 0, mz) || mz != 0x5A4D) {
    error = "is not a Windows module (no MZ header)";
    return false;
  }
  if (!ReadU32(b, 0x3C, peOffset)) {
    error = "is truncated in the MZ header";
    return false;
  }
  std::uint32_t signature = 0;
  if (!ReadU32(b, peOffset, signature)) {
    error = "is truncated before the PE header";
    return false;
  }
  if (signature != 0x00004550) {
    error = "is not a PE module (no PE signature)";
    return false;
  }
  const std::size_t coff = std::size_t{peOffset} + 4;
  std::uint16_t sectionCount = 0, optionalSize = 0, magic = 0;
  if (!ReadU16(b, coff, machine_) || !ReadU16(b, coff + 2, sectionCount) ||
      !ReadU16(b, coff + 16, optionalSize)) {
    error = "is truncated in the file header";
    return false;
  }
  const std::size_t optional = coff + 20;
  if (!ReadU16(b, optional, magic)) {
    error = "is truncated in the optional header";
    return false;
  }
  if (magic != 0x10B && magic != 0x20B) {
    error = "has an unknown optional header kind";
    return false;
  }
  is64_ = magic == 0x20B;
  const std::size_t countAt = optional + (is64_ ? 108 : 92);
  const std::size_t directories = countAt + 4;
  std::uint32_t directoryCount = 0;
  if (optionalSize < (countAt + 4 - optional) || !ReadU32(b, countAt, directoryCount)) {
    error = "is truncated in the optional header";
    return false;
  }
  std::uint32_t resourceRva = 0, resourceSize = 0;
  const std::size_t resourceAt = directories + kResourceDirectoryIndex * 8;
  if (directoryCount > kResourceDirectoryIndex && resourceAt + 8 <= optional + optionalSize) {
    if (!ReadU32(b, resourceAt, resourceRva) || !ReadU32(b, resourceAt + 4, resourceSize)) {
      error = "is truncated in the data directories";
      return false;
    }
  }
  if (sectionCount > kMaxSections) {
    error = "has more sections than any module can have";
    return false;
  }
  const std::size_t table = optional + optionalSize;
  for (std::uint16_t i = 0; i < sectionCount; ++i) {
    const std::size_t at = table + std::size_t{i} * 40;
    PeSection s;
    if (at + 40 > b.size() || !ReadU32(b, at + 8, s.virtualSize) ||
        !ReadU32(b, at + 12, s.virtualAddress) || !ReadU32(b, at + 16, s.rawSize) ||
        !ReadU32(b, at + 20, s.rawOffset)) {
      error = "is truncated in the section table";
      return false;
    }
    s.name.assign(b.substr(at, 8));
    s.name = s.name.substr(0, s.name.find('\0'));
    sections_.push_back(std::move(s));
  }
  if (resourceRva != 0 && !ReadResourceDirectory(resourceRva)) {
    error = "has a resource directory outside the file";
    return false;
  }
  return true;
}

bool PeImage::MapAddress(std::uint32_t rva, std::uint32_t size, std::uint32_t &offset) const {
  for (const PeSection &s : sections_) {
    // Past the raw data a section is zeros in memory but not in the file;
    // only what the file holds can be read.
    const std::uint64_t start = s.virtualAddress;
    const std::uint64_t span = std::max(s.virtualSize, s.rawSize);
    if (rva < start || rva >= start + span) continue;
    const std::uint64_t within = rva - start;
    if (within + size > s.rawSize) return false;
    const std::uint64_t at = std::uint64_t{s.rawOffset} + within;
    if (at + size > bytes_.size()) return false;
    offset = static_cast<std::uint32_t>(at);
    return true;
  }
  return false;
}

bool PeImage::ReadName(std::uint32_t rootOffset, std::uint32_t rootSize, std::uint32_t entryName,
                       ResName &name) const {
  std::string_view b = View(bytes_);
  if (!(entryName & 0x80000000u)) {
    name.id = static_cast<std::uint16_t>(entryName);
    name.text.clear();
    return true;
  }
  const std::uint32_t relative = entryName & 0x7FFFFFFFu;
  std::uint16_t length = 0;
  if (relative >= rootSize || !ReadU16(b, std::size_t{rootOffset} + relative, length)) return false;
  const std::uint64_t end = std::uint64_t{rootOffset} + relative + 2 + std::uint64_t{length} * 2;
  if (end > b.size() || length == 0) return false;
  name.id = 0;
  name.text.clear();
  name.text.reserve(length);
  for (std::uint16_t i = 0; i < length; ++i) {
    std::uint16_t unit = 0;
    ReadU16(b, std::size_t{rootOffset} + relative + 2 + std::size_t{i} * 2, unit);
    name.text.push_back(static_cast<wchar_t>(unit));
  }
  return true;
}

bool PeImage::ReadResourceDirectory(std::uint32_t rootRva) {
  std::string_view b = View(bytes_);
  // The directory's offsets are relative to its root; everything it points
  // at must lie in the section holding the root.
  std::uint32_t rootOffset = 0;
  if (!MapAddress(rootRva, 16, rootOffset)) return false;
  std::uint32_t rootSize = 0;
  for (const PeSection &s : sections_) {
    if (rootRva >= s.virtualAddress && rootRva - s.virtualAddress < std::max(s.virtualSize, s.rawSize)) {
      rootSize = std::min<std::uint32_t>(s.rawSize - (rootRva - s.virtualAddress),
                                         static_cast<std::uint32_t>(b.size() - rootOffset));
    }
  }
  std::set<std::uint32_t> visited;

  // One directory's entries: (name field, target field) pairs, or false
  // when the directory itself can't be read.
  auto entries = [&](std::uint32_t relative, std::vector<std::pair<std::uint32_t, std::uint32_t>> &out) {
    out.clear();
    if (relative >= rootSize || rootSize - relative < 16) return false;
    if (!visited.insert(relative).second) return false;
    std::uint16_t named = 0, ids = 0;
    const std::size_t at = std::size_t{rootOffset} + relative;
    ReadU16(b, at + 12, named);
    ReadU16(b, at + 14, ids);
    const std::size_t count = std::size_t{named} + ids;
    if ((rootSize - relative - 16) / 8 < count) return false;
    out.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      std::uint32_t name = 0, target = 0;
      ReadU32(b, at + 16 + i * 8, name);
      ReadU32(b, at + 20 + i * 8, target);
      out.emplace_back(name, target);
    }
    return true;
  };

  std::vector<std::pair<std::uint32_t, std::uint32_t>> types, names, languages;
  if (!entries(0, types)) return false;
  for (const auto &[typeName, typeTarget] : types) {
    PeResource r;
    if (!(typeTarget & 0x80000000u) || !ReadName(rootOffset, rootSize, typeName, r.type) ||
        !entries(typeTarget & 0x7FFFFFFFu, names)) {
      ++damaged_;
      continue;
    }
    for (const auto &[nameName, nameTarget] : names) {
      if (!(nameTarget & 0x80000000u) || !ReadName(rootOffset, rootSize, nameName, r.name) ||
          !entries(nameTarget & 0x7FFFFFFFu, languages)) {
        ++damaged_;
        continue;
      }
      for (const auto &[languageName, dataTarget] : languages) {
        std::uint32_t rva = 0, size = 0, codePage = 0, offset = 0;
        const std::uint32_t relative = dataTarget;
        if ((dataTarget & 0x80000000u) || relative >= rootSize || rootSize - relative < 16) {
          ++damaged_;
          continue;
        }
        const std::size_t at = std::size_t{rootOffset} + relative;
        ReadU32(b, at, rva);
        ReadU32(b, at + 4, size);
        ReadU32(b, at + 8, codePage);
        if (!MapAddress(rva, size, offset) || resources_.size() >= kMaxResources) {
          ++damaged_;
          continue;
        }
        r.language = static_cast<std::uint16_t>(languageName);
        r.codePage = codePage;
        r.rva = rva;
        r.offset = offset;
        r.size = size;
        resources_.push_back(r);
      }
    }
  }
  return true;
}

}  // namespace tolv
