// The letters by which menus are opened.
#pragma once

#include <QString>

namespace tela {

/// The letters that captions of the screens' buttons use with Alt. No menu takes one of them.
inline const QString kButtonLetters = "ACDEMNPRSTUVWX";

/// The caption with a mark ahead of the first letter that is not among `taken`, which then is; as
/// it is if none is free.
QString with_letter(const QString& caption, QString& taken);

}  // namespace tela
