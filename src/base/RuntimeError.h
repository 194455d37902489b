// The run-time error: a number and a text, and the one helper that ignores it statement by statement.
//
// A routine takes one of three stances, visible at a glance:
//   - no handler: the error passes to the caller and, at the top, stops the program;
//   - ResumeNext(...): each statement runs, whatever happened to the one before it;
//   - a function-try-block: an error jumps to the end of the routine.
#pragma once

#include <exception>
#include <new>
#include <string>

namespace pintalux {

enum ErrorNumber : int {
    kInvalidArgument = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscriptOutOfRange = 9,
    kInterrupted = 18, // by the user
    kDeviceError = 57,
    kFileNotFound = 53,
    kDiskFull = 61,
    kDeviceUnavailable = 68,
    kPermissionDenied = 70,
    kPathFileAccess = 75,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kInvalidPropertyValue = 380,
    kInvalidPicture = 481,
    kInternalError = 51,
};

/// The text that the platform shows for an error number; a generic text for a number it does not know.
std::string ErrorText(int number);

class RuntimeError : public std::exception {
  public:
    /// An error with the platform's own text for `number`, followed by `detail` if there is one.
    explicit RuntimeError(int number, std::string detail = {});

    int Number() const noexcept { return number_; }
    const std::string& Text() const noexcept { return text_; }
    const char* what() const noexcept override { return text_.c_str(); }

  private:
    int number_;
    std::string text_;
};

/// The exception in flight as a run-time error: out of memory becomes number 7, anything foreign number 51.
/// To be called inside a catch block only.
RuntimeError CurrentError();

/// Runs the statements one after the other; an error in one is dropped and the next one runs.
template <class... Statements>
void ResumeNext(Statements&&... statements) {
    const auto run = [](auto& statement) {
        try {
            statement();
        } catch (const RuntimeError&) {
        } catch (const std::bad_alloc&) {
        }
    };
    (run(statements), ...);
}

} // namespace pintalux
