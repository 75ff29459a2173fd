// The one way to write a file: the target is the whole old file until it is the whole new one.
#pragma once

#include "base/paths.h"
#include "base/platform.h"
#include "base/runtimeerror.h"
#include "base/windows1252.h"

#include <functional>

namespace norvik {

/// Called with a file's path before its bytes are overwritten where they stand.
using OverwritingHook = std::function<void(const FilePath&)>;

/// Where bytes are to go, and what may happen to what is there.
struct OutputTarget {
    /// A path is a target without further wishes.
    OutputTarget(FilePath path) : Path(std::move(path)) {}  // NOLINT(*-explicit-*)

    FilePath Path;
    /// Whether a file of that name may be replaced; if not, there is a FileExists.
    bool Replace = true;
    /// Whether a device is refused like a folder.
    bool OnlyFiles = false;
    /// Whether a missing folder is made.
    bool MakeFolder = false;
    /// Takes the bytes in place of the file, all of them or none.
    Bytes* Memory = nullptr;
    /// Overwriting is the one way in which the end of the process or the machine can leave half a
    /// file, so whoever keeps earlier versions keeps this one.
    OverwritingHook BeforeOverwriting;
};

/// The target's name is taken, and nothing was to be replaced.
class FileExists : public RuntimeError {
  public:
    FileExists() : RuntimeError(ErrorNumber::PathAccessError) {}
};

/// A file being written. Until Close() has gone through, the target is as it was: the bytes go into
/// a file of another name beside it, which takes its place, its owner and its permissions at the
/// end. Without Close(), after a failure, and when a signal ends the process, nothing stays behind;
/// what stays of a process that was killed, a later one removes.
///
/// A link stays a link; the file that it leads to is written. A device is written directly. Where
/// nothing can be put beside the file, where it has several names, or an owner that a new file
/// cannot have, the bytes are collected, and Close() writes them over the old ones; when that
/// fails, it puts those back.
class OutputFile {
  public:
    /// Raises error 64, 70, 75, 76 or 57 for a target that cannot be written, FileExists for one
    /// that may not be replaced, and 61 on a disk that is full already.
    explicit OutputFile(OutputTarget target);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    OutputFile(OutputFile&&) = delete;
    OutputFile& operator=(OutputFile&&) = delete;
    /// Gives up what was not closed.
    ~OutputFile();

    /// Raises on a failed write; since writing is buffered, a failure may come with a later call.
    void Write(ByteView bytes);
    /// Puts the file in its place, on the disk; raises when anything of it failed.
    void Close();

  private:
    [[nodiscard]] bool IsOpen() const { return file_.File != platform::NoHandle; }
    void CreateBeside(bool exists);
    void OpenDevice();
    void Flush();
    void CloseHandle();
    void PutInPlace();
    void Overwrite(ByteView bytes);
    void ForgetBeside();

    OutputTarget target_;
    FilePath place_;   ///< the target at the end of its links
    FilePath like_;    ///< the file whose owner and permissions are kept; empty for a new one
    FilePath beside_;  ///< the unfinished file; empty when there is none
    platform::NewFile file_;
    Bytes buffer_;
    bool collects_ = false;  ///< the buffer takes everything up to Close()
};

/// Puts `bytes` into the file as a whole, in a folder that is made where it is missing.
void ReplaceFile(OutputTarget target, ByteView bytes);

/// Removes those of the folder's files that are `unfinished` and that nobody writes any more: their
/// process died in the midst of it. They are closed, and have not changed for ten minutes.
void RemoveAbandoned(const FilePath& folder, bool (*unfinished)(const FilePath& name));

/// Whether something bears the name, be it a link to nowhere. Raises error 64, 70 or 57 when the
/// system cannot tell.
bool IsNameTaken(const FilePath& path);

}  // namespace norvik
