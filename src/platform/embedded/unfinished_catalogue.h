// A catalogue file in the making: under a name of its own until it is whole.
#pragma once

#include <filesystem>
#include <optional>

namespace tela::embedded {

/// An open file or folder of the system, closed with this object; its lock goes with it.
class FileDescriptor {
 public:
  /// A number below 0 is a failed opening.
  explicit FileDescriptor(int number) : number_(number) {}
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  int number() const { return number_; }

 private:
  int number_;
};

/// The file is made in a folder of its own beside its later name; the folder goes with this object.
/// So two programs never meet in one file. The folder is locked: one that nobody holds was left by
/// a program that was killed, and the next one removes it.
class UnfinishedCatalogue {
 public:
  /// `file` is the later name. Throws DatabaseError if it is taken, or if the log of a former
  /// catalogue of that name lies there, which SQLite would take for the new one's.
  explicit UnfinishedCatalogue(std::filesystem::path file);
  ~UnfinishedCatalogue();
  UnfinishedCatalogue(const UnfinishedCatalogue&) = delete;
  UnfinishedCatalogue& operator=(const UnfinishedCatalogue&) = delete;

  /// Where the file is to be made.
  std::filesystem::path path() const { return folder_ / file_.filename(); }

  /// Writes the file, which nobody has open by now, to the disk and gives it its name. What stands
  /// under that name by then is left as it is. Throws DatabaseError.
  void publish() const;

 private:
  std::filesystem::path file_;
  std::filesystem::path folder_;
  std::optional<FileDescriptor> lock_;
};

}  // namespace tela::embedded
