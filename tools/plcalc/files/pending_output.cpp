#include "files/pending_output.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tool {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolderName = ".plcalc-XXXXXX";
constexpr std::size_t kFolderPrefix = 8;

// More links than this lead round in a circle.
constexpr int kMaxLinks = 40;

// Another run may take a folder that was just made for one that was left behind; hardly ever, never so often.
constexpr int kMaxTries = 100;

fs::path parent_of(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// The file to which a symbolic link leads, whether or not it exists.
fs::path without_links(fs::path path)
{
    std::error_code error;
    for (int i = 0; i < kMaxLinks && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

// A symbolic or hard link to one of the files is that file.
bool is_one_of(const std::vector<std::string>& files, const fs::path& path)
{
    std::error_code error;  // a path that does not exist is none
    return std::any_of(files.begin(), files.end(),
                       [&](const std::string& file) { return fs::equivalent(file, path, error); });
}

int opened_folder(const fs::path& folder)
{
    return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW);
}

bool is_open_at(int folder, const fs::path& path)
{
    struct stat opened = {};
    struct stat there = {};
    return fstat(folder, &opened) == 0 && lstat(path.c_str(), &there) == 0 && opened.st_ino == there.st_ino &&
           opened.st_dev == there.st_dev;
}

bool has_our_name(const fs::path& path)
{
    const std::string name = path.filename().string();
    const std::string pattern = kFolderName;
    return name.size() == pattern.size() && name.compare(0, kFolderPrefix, pattern, 0, kFolderPrefix) == 0;
}

// Removes the folder and the files in it if no living run has it. A run holds the lock as long as it lives.
void remove_if_abandoned(const fs::path& folder)
{
    struct stat there = {};
    if (lstat(folder.c_str(), &there) != 0 || !S_ISDIR(there.st_mode) || there.st_uid != geteuid())
        return;
    const int lock = opened_folder(folder);
    if (lock < 0)
        return;
    std::error_code ignored;
    if (flock(lock, LOCK_EX | LOCK_NB) == 0 && is_open_at(lock, folder)) {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored))
            if (entry.is_regular_file(ignored))
                fs::remove(entry.path(), ignored);
        fs::remove(folder, ignored);
    }
    close(lock);
}

void remove_abandoned(const fs::path& parent)
{
    std::error_code ignored;
    for (fs::directory_iterator entry(parent, ignored), end; !ignored && entry != end;
         entry.increment(ignored))
        if (has_our_name(entry->path()))
            remove_if_abandoned(entry->path());
}

}  // namespace

PendingOutput::PendingOutput(const std::string& path, bool overwrite, const std::vector<std::string>& sources,
                             const std::vector<std::string>& others)
    : name_(path), target_(without_links(path)), overwrite_(overwrite), sources_(sources), others_(others)
{
    std::error_code error;
    if (fs::is_symlink(target_, error))
        throw Failure(ExitStatus::wrong_use, {path, ""}, "the link leads back to itself",
                      "choose another name");
    if (!target_.has_filename() || fs::is_directory(target_, error))
        throw Failure(ExitStatus::wrong_use, {path, ""}, "this is a folder", "name a file in it");
    require_replaceable(target_);
    remove_abandoned(parent_of(target_));
    make_folder();
}

PendingOutput::~PendingOutput()
{
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    if (lock_ >= 0)
        close(lock_);
}

// Where files cannot be locked, nobody locks, and nothing is removed.
void PendingOutput::make_folder()
{
    for (int i = 0; i < kMaxTries; ++i) {
        std::string name = (parent_of(target_) / kFolderName).string();
        if (mkdtemp(name.data()) == nullptr)
            fail(target_, std::error_code(errno, std::generic_category()).message());
        folder_ = name;
        lock_ = opened_folder(folder_);
        if (lock_ < 0 || flock(lock_, LOCK_EX) != 0 || is_open_at(lock_, folder_))
            return;
        close(lock_);
    }
    fail(target_, "other runs remove its folder");
}

void PendingOutput::fail(const fs::path& path, const std::string& why) const
{
    throw Failure(ExitStatus::failed, {shown(path), ""}, "the file cannot be written (" + why + ")",
                  "check the folder and its permissions");
}

bool PendingOutput::is_read(const fs::path& path) const
{
    return is_one_of(sources_, path) || is_one_of(others_, path);
}

// As the command line names it.
std::string PendingOutput::shown(const fs::path& path) const
{
    return path == target_ ? name_ : path.string();
}

void PendingOutput::require_replaceable(const fs::path& path) const
{
    std::error_code error;
    const auto refuse = [&](const std::string& why, const std::string& advice) {
        throw Failure(ExitStatus::wrong_use, {shown(path), ""}, why, advice);
    };
    if (is_one_of(sources_, path))
        refuse("the parcels come from this file", "choose another name");
    if (is_one_of(others_, path))
        refuse("this file is read", "choose another name");
    // A renamed file would take the place of the device itself, which root may do even to /dev/null.
    if (fs::is_other(path, error))
        refuse("this is a device or a pipe, not a file", "choose another name");
    if (!overwrite_ && fs::exists(path, error))
        refuse("the file exists already", "choose another name or add --overwrite");
}

std::string PendingOutput::path() const
{
    return (folder_ / target_.filename()).string();
}

// What SQLite keeps beside a database while a program is at work on it. Without it the copy would lack the latest
// changes, and beside the new file it would spoil it.
void PendingOutput::copy_existing() const
{
    std::error_code error;
    for (const char* ending : {"-wal", "-journal"}) {
        const fs::path beside = target_.string() + ending;
        if (fs::exists(beside, error) && fs::file_size(beside, error) > 0)
            throw Failure(ExitStatus::wrong_use, {name_, ""},
                          "another program is at work on the file, or was stopped ('" +
                              beside.filename().string() + "' is beside it)",
                          "close the file there, or choose another name");
    }
    if (!fs::copy_file(target_, path(), error))
        fail(target_, error.message());
}

// Tries it, because a free block may be one that only root may use, or that a quota forbids.
bool PendingOutput::disk_is_full() const
{
    constexpr std::size_t kBlock = 65536;
    constexpr int kBlocks = 16;
    const std::string block(kBlock, ' ');
    const fs::path trial = folder_ / ".room";
    const int file = open(trial.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    int error = file < 0 ? errno : 0;
    for (int i = 0; i < kBlocks && error == 0; ++i) {
        const ssize_t written = write(file, block.data(), block.size());
        if (written < 0)  // after a part of a block, the next one fails
            error = errno;
    }
    if (file >= 0)
        close(file);
    unlink(trial.c_str());
    return error == ENOSPC || error == EDQUOT;
}

void PendingOutput::commit(const std::vector<fs::path>& replaced)
{
    std::error_code error;
    std::vector<fs::path> written;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_))
        written.push_back(entry.path().filename());
    const fs::path parent = target_.parent_path();
    for (const fs::path& name : written)
        require_replaceable(parent / name);
    for (const fs::path& name : written) {
        fs::rename(folder_ / name, parent / name, error);
        if (error)
            fail(parent / name, error.message());
    }
    const auto is_new = [&](const fs::path& path) {
        return std::find(written.begin(), written.end(), path.filename()) != written.end();
    };
    for (const fs::path& path : replaced)
        if (!is_new(path) && !is_read(path))
            fs::remove(path, error);
}

bool is_same_output(const std::string& one, const std::string& other)
{
    const auto place = [](const std::string& path) {
        std::error_code error;
        const fs::path target = without_links(path);
        const fs::path folder = fs::weakly_canonical(parent_of(target), error);
        return (error ? parent_of(target).lexically_normal() : folder) / target.filename();
    };
    return place(one) == place(other);
}

void write_text_file(const std::string& path, const std::string& text, const std::string& name)
{
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        throw Failure(ExitStatus::failed, {name, ""},
                      "the file could not be written (" + std::generic_category().message(errno) + ")",
                      "check the folder and the room on the disk");
}

Failure disk_full(const std::string& file)
{
    return {ExitStatus::failed, {file, ""}, "the disk is full", "make room on it, or write to another"};
}

}  // namespace tool
