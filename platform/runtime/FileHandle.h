#pragma once

#include <unistd.h>
#include <utility>

/// An open file or folder of the system, closed with the object.
class FileHandle {
public:
    /// What the system's calls return: below 0 nothing is open.
    explicit FileHandle(int number = -1) : number_(number) {}
    FileHandle(FileHandle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() {
        if (number_ >= 0)
            ::close(number_);
    }

    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// The number, for somebody else to close.
    int Release() { return std::exchange(number_, -1); }

private:
    int number_;
};
