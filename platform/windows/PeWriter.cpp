#include "platform/windows/PeWriter.h"

#include <map>
#include <tuple>

namespace tolv {

namespace {

constexpr std::uint32_t kSectionRva = 0x1000;
constexpr std::uint32_t kFileAlignment = 0x200;
constexpr std::uint32_t kHeaderSize = 0x200;

// Directory order: named entries first, by name, then numbered ones by number.
struct KeyLess {
  bool operator()(const ResName &a, const ResName &b) const {
    if (a.IsId() != b.IsId()) return !a.IsId();
    return a.IsId() ? a.id < b.id : a.text < b.text;
  }
};

using Languages = std::map<std::uint16_t, const std::string *>;
using Names = std::map<ResName, Languages, KeyLess>;
using Types = std::map<ResName, Names, KeyLess>;

void Put16(std::string &out, std::size_t at, std::uint32_t v) {
  out[at] = static_cast<char>(v & 0xFF);
  out[at + 1] = static_cast<char>((v >> 8) & 0xFF);
}
void Put32(std::string &out, std::size_t at, std::uint32_t v) {
  Put16(out, at, v & 0xFFFF);
  Put16(out, at + 2, v >> 16);
}

std::uint32_t Align(std::uint32_t v, std::uint32_t to) { return (v + to - 1) / to * to; }

}  // namespace

std::string WritePeImage(const std::vector<PeResourceData> &resources) {
  Types types;
  for (const PeResourceData &r : resources) types[r.type][r.name][r.language] = &r.bytes;

  // Sizes: every directory, then the data entries, the names and the data.
  std::uint32_t directories = 16 + 8 * static_cast<std::uint32_t>(types.size());
  std::uint32_t dataEntries = 0;
  for (const auto &[type, names] : types) {
    directories += 16 + 8 * static_cast<std::uint32_t>(names.size());
    for (const auto &[name, languages] : names) {
      directories += 16 + 8 * static_cast<std::uint32_t>(languages.size());
      dataEntries += static_cast<std::uint32_t>(languages.size());
    }
  }
  std::string section(directories + dataEntries * 16, '\0');
  std::map<std::wstring, std::uint32_t> nameOffsets;
  auto nameField = [&](const ResName &name) -> std::uint32_t {
    if (name.IsId()) return name.id;
    auto found = nameOffsets.find(name.text);
    if (found != nameOffsets.end()) return found->second | 0x80000000u;
    const std::uint32_t at = static_cast<std::uint32_t>(section.size());
    section.append(2 + name.text.size() * 2, '\0');
    Put16(section, at, static_cast<std::uint32_t>(name.text.size()));
    for (std::size_t i = 0; i < name.text.size(); ++i) Put16(section, at + 2 + i * 2, name.text[i] & 0xFFFF);
    nameOffsets[name.text] = at;
    return at | 0x80000000u;
  };
  auto header = [&](std::uint32_t at, const auto &entries) {
    std::uint16_t named = 0, ids = 0;
    for (const auto &entry : entries) {
      if constexpr (std::is_same_v<std::decay_t<decltype(entry.first)>, ResName>) {
        (entry.first.IsId() ? ids : named)++;
      } else {
        ++ids;
      }
    }
    Put16(section, at + 12, named);
    Put16(section, at + 14, ids);
  };

  std::uint32_t nextDirectory = 0, nextData = directories;
  std::vector<std::pair<std::uint32_t, const std::string *>> blobs;  // data entry, bytes
  const std::uint32_t root = nextDirectory;
  nextDirectory += 16 + 8 * static_cast<std::uint32_t>(types.size());
  header(root, types);
  std::uint32_t typeSlot = root + 16;
  for (const auto &[type, names] : types) {
    const std::uint32_t typeDir = nextDirectory;
    nextDirectory += 16 + 8 * static_cast<std::uint32_t>(names.size());
    Put32(section, typeSlot, nameField(type));
    Put32(section, typeSlot + 4, typeDir | 0x80000000u);
    typeSlot += 8;
    header(typeDir, names);
    std::uint32_t nameSlot = typeDir + 16;
    for (const auto &[name, languages] : names) {
      const std::uint32_t nameDir = nextDirectory;
      nextDirectory += 16 + 8 * static_cast<std::uint32_t>(languages.size());
      Put32(section, nameSlot, nameField(name));
      Put32(section, nameSlot + 4, nameDir | 0x80000000u);
      nameSlot += 8;
      header(nameDir, languages);
      std::uint32_t languageSlot = nameDir + 16;
      for (const auto &[language, bytes] : languages) {
        Put32(section, languageSlot, language);
        Put32(section, languageSlot + 4, nextData);
        languageSlot += 8;
        blobs.emplace_back(nextData, bytes);
        nextData += 16;
      }
    }
  }
  for (const auto &[entry, bytes] : blobs) {
    section.resize(Align(static_cast<std::uint32_t>(section.size()), 8), '\0');
    Put32(section, entry, kSectionRva + static_cast<std::uint32_t>(section.size()));
    Put32(section, entry + 4, static_cast<std::uint32_t>(bytes->size()));
    section += *bytes;
  }
  const std::uint32_t virtualSize = static_cast<std::uint32_t>(section.size());
  section.resize(Align(virtualSize, kFileAlignment), '\0');

  std::string image(kHeaderSize, '\0');
  image[0] = 'M';
  image[1] = 'Z';
  Put32(image, 0x3C, 0x40);
  image.replace(0x40, 4, std::string("PE\0\0", 4));
  const std::size_t coff = 0x44;
  Put16(image, coff, 0x14C);        // i386
  Put16(image, coff + 2, 1);        // one section
  Put16(image, coff + 16, 224);     // optional header size
  Put16(image, coff + 18, 0x2102);  // executable, 32-bit, DLL
  const std::size_t optional = coff + 20;
  Put16(image, optional, 0x10B);
  Put32(image, optional + 28, 0x10000000);  // image base
  Put32(image, optional + 32, 0x1000);      // section alignment
  Put32(image, optional + 36, kFileAlignment);
  Put32(image, optional + 56, Align(kSectionRva + virtualSize, 0x1000));  // image size
  Put32(image, optional + 60, kHeaderSize);
  Put32(image, optional + 92, 16);  // data directories
  Put32(image, optional + 96 + 2 * 8, kSectionRva);
  Put32(image, optional + 96 + 2 * 8 + 4, virtualSize);
  const std::size_t table = optional + 224;
  image.replace(table, 5, ".rsrc");
  Put32(image, table + 8, virtualSize);
  Put32(image, table + 12, kSectionRva);
  Put32(image, table + 16, static_cast<std::uint32_t>(section.size()));
  Put32(image, table + 20, kHeaderSize);
  Put32(image, table + 36, 0x40000040);  // initialized data, readable
  return image + section;
}

}  // namespace tolv
