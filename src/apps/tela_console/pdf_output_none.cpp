#include "apps/tela_console/pdf_output.h"

namespace tela {

PdfWriter make_pdf_writer() {
  return {};
}

}  // namespace tela
