// A reader of the resources of a Windows executable image (PE32 and PE32+):
// its headers, its section table and its resource directory with types,
// names and languages.
//
// Everything read from the file is checked against the file before use: an
// offset, count or size that points outside it makes the read fail or the
// entry be left out, never a read past the end. Resource directories are
// three levels deep; a directory met twice (a loop, or two entries sharing
// one) is walked once.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolv {

// A resource type or name: a number, or a text when `text` is not empty.
struct ResName {
  std::uint16_t id = 0;
  std::wstring text;

  bool IsId() const { return text.empty(); }
  bool operator==(const ResName &other) const { return id == other.id && text == other.text; }
};

struct PeResource {
  ResName type;
  ResName name;
  std::uint16_t language = 0;
  std::uint32_t codePage = 0;
  // Where the data lies: its address in the loaded image and its place in
  // the bytes the image was read from.
  std::uint32_t rva = 0;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

struct PeSection {
  std::string name;
  std::uint32_t virtualAddress = 0;
  std::uint32_t virtualSize = 0;
  std::uint32_t rawOffset = 0;
  std::uint32_t rawSize = 0;
};

class PeImage {
 public:
  // Reads an image from its bytes. False, with a reason a person can read,
  // when the bytes are not a PE image or its headers run past the end. A
  // resource directory that is damaged further in loses only the entries
  // that can't be read.
  bool Parse(std::vector<std::uint8_t> bytes, std::string &error);
  // The same for a file on the disk (a POSIX path); files above `maxBytes`
  // are refused.
  bool Load(const std::string &path, std::string &error, std::size_t maxBytes = 512u << 20);

  // An image made in memory: the bytes and the resources that lie in them
  // (the offsets must lie within the bytes).
  void Adopt(std::vector<std::uint8_t> bytes, std::vector<PeResource> resources) {
    bytes_ = std::move(bytes);
    resources_ = std::move(resources);
  }

  bool Is64Bit() const { return is64_; }
  std::uint16_t Machine() const { return machine_; }
  const std::vector<PeSection> &Sections() const { return sections_; }
  // In the order of the directory: types, then names, then languages.
  const std::vector<PeResource> &Resources() const { return resources_; }
  // The entries that were left out because they pointed outside the file.
  int DamagedEntries() const { return damaged_; }

  std::string_view Data(const PeResource &resource) const {
    return std::string_view(reinterpret_cast<const char *>(bytes_.data()) + resource.offset, resource.size);
  }
  const std::vector<std::uint8_t> &Bytes() const { return bytes_; }

  // The file offset of `size` bytes at an address, if they lie in one
  // section's data within the file.
  bool MapAddress(std::uint32_t rva, std::uint32_t size, std::uint32_t &offset) const;

 private:
  bool ReadResourceDirectory(std::uint32_t rootRva);
  bool ReadName(std::uint32_t rootOffset, std::uint32_t rootSize, std::uint32_t entryName, ResName &name) const;

  std::vector<std::uint8_t> bytes_;
  bool is64_ = false;
  std::uint16_t machine_ = 0;
  std::vector<PeSection> sections_;
  std::vector<PeResource> resources_;
  int damaged_ = 0;
};

// Little-endian reads, checked against the buffer: false when the value
// would run past the end.
bool ReadU16(std::string_view bytes, std::size_t at, std::uint16_t &value);
bool ReadU32(std::string_view bytes, std::size_t at, std::uint32_t &value);

}  // namespace tolv
