// The one failure type above the pixel kernels: a number, a description fit for the user, and the place it came from.
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <exception>

namespace kelu {

/// Numbers that the program itself raises; files and devices use kFileError unless a more telling one stands here.
enum ErrorNumber : int {
    kEndOfFile = 53,         ///< a file ends before its data does
    kFileError = 57,         ///< a file could not be read or written
    kInvalidPicture = 481,   ///< bytes that are no picture, or a damaged one
    kInvalidProperty = 380,  ///< a property refuses the value
    kOutOfMemory = 7,        ///< a picture too large for this machine or for the set limits
    kNoUndoLevel = 5,        ///< Undo or Redo with no level left
    kNoCamera = 1000,        ///< no capture device
};

class Error : public std::exception {
 public:
    Error(int number, QString description, QString source = QString())
        : number_(number),
          description_(std::move(description)),
          source_(std::move(source)),
          what_(description_.toUtf8().toStdString()) {}

    int Number() const { return number_; }
    /// One line for the user, without number and without a line end.
    const QString& Description() const { return description_; }
    /// The operation that failed, for example "ReadGifFile"; may be empty.
    const QString& Source() const { return source_; }
    const char* what() const noexcept override { return what_.c_str(); }

 private:
    int number_;
    QString description_;
    QString source_;
    std::string what_;
};

/// Runs one step and drops its failure: the next step of the caller runs all the same.
template <typename Step>
void Attempt(Step&& step) {
    try {
        step();
    } catch (const std::exception&) {
        // Dropped on purpose: this step is allowed to fail without a word.
    }
}

}  // namespace kelu
