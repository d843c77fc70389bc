// The output that a bill's bytes go to: what the program asks of a printer, whatever stands behind
// it.
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tela {

/// Why a bill did not reach its printer, in words for the user that name the port.
class PrinterError : public std::runtime_error {
 public:
  enum class Kind {
    cannot_open,   ///< nothing has been printed
    storage_full,  ///< the disk behind the port filled up in mid-bill
    failed         ///< the port broke off in mid-bill
  };

  PrinterError(Kind kind, const std::string& message) : std::runtime_error(message), kind_(kind) {}

  Kind kind() const { return kind_; }

 private:
  Kind kind_;
};

/// A port that is open for one bill. Every failure throws PrinterError.
class PrinterPort {
 public:
  virtual ~PrinterPort() = default;

  /// Writes the bytes as they are; none is changed, added or held back.
  virtual void write(std::string_view bytes) = 0;

  /// Ends the bill, which counts as printed only when this returns. A port that is destroyed
  /// without it ends without a word, and a print queue then gets nothing.
  virtual void close() = 0;
};

/// Opens the port of that name. The program gets one from its platform.
using PrinterPortOpener = std::function<std::unique_ptr<PrinterPort>(std::string_view name)>;

}  // namespace tela
