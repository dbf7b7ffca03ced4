// Seed inputs for the fuzz targets: real dictionary files of every item
// kind, in the archive and the XML form, made by the module itself.
#pragma once

#include <string>
#include <vector>

std::vector<std::string> ArchiveSeeds();
std::vector<std::string> XmlSeeds();

// What a target gives the driver: its seeds.
std::vector<std::string> FuzzTargetSeeds();
