// Where the rows are kept that an action takes away or changes: as the logic sees it.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace tela {

/// What one action leaves behind, in parts, one for each of its transactions. A part is files of
/// text; it is there whole or not at all. What cannot be kept throws std::runtime_error with words
/// for the user.
class KeptRows {
 public:
  /// Forgets a part that is not published.
  virtual ~KeptRows() = default;

  /// Appends to a file of the part that is being made, which the first call begins.
  virtual void append(std::string_view file, std::string_view text) = 0;

  /// Lets the part appear, once all of it is safely stored. Without a file it does nothing.
  virtual void publish() = 0;

  /// Forgets the part that is being made.
  virtual void discard() noexcept = 0;
};

/// Begins to keep what an action of that screen takes away. Writes nothing yet.
using RowKeeper = std::function<std::unique_ptr<KeptRows>(std::string_view screen)>;

}  // namespace tela
