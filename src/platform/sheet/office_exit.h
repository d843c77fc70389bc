// How the program that speaks to LibreOffice ends.
#pragma once

namespace tela {

enum OfficeExit { kOfficeDone = 0, kOfficeFailed = 1, kOfficeNotListening = 3 };

}  // namespace tela
