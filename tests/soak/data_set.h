#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace kvez::soak {

/// The three data files, and what a program that has loaded them shows.
struct DataSet {
  std::array<std::string, 3> files;
  int municipalities = 0;
  int districts = 0;
};

/// The set that lies in a folder. Throws std::runtime_error when there is none.
DataSet ReadDataSet(const std::filesystem::path& folder);
/// Another one: each file has one record more.
DataSet Enlarged(const DataSet& set);

void WriteDataSet(const DataSet& set, const std::filesystem::path& folder);
std::string DataFileName(int file);

}  // namespace kvez::soak
