// The layouts that come with the program, opened over rows of a test.
#pragma once

#include <memory>
#include <string>

#include "platform/report/report_engine.h"
#include "report/fake_catalogue.h"

namespace tela {

/// Opens the shipped layout `file` over `catalogue`, which gets `records` plausible rows of the
/// staging table that the layout reads. The heading "tit" is "TELA MINI SUPER MARKET".
std::unique_ptr<Report> open_shipped(const std::string& file, FakeCatalogue& catalogue,
                                     int records);

}  // namespace tela
