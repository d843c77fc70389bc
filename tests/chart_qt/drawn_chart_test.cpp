// What is on the pictures of charts, found by the colours of their rows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTemporaryDir>
#include <set>
#include <tuple>

#include "platform/chart_qt/chart_view.h"
#include "platform/chart_qt/data_labels.h"
#include "platform/chart_qt/picture_clipboard.h"
#include "platform/chart_qt/pie.h"

namespace tela {
namespace {

constexpr QSize kSize(800, 500);

const ChartType kTypes[] = {
    ChartType::bar_3d,         ChartType::bar_2d,         ChartType::line_3d, ChartType::line_2d,
    ChartType::area_3d,        ChartType::area_2d,        ChartType::step_3d, ChartType::step_2d,
    ChartType::combination_3d, ChartType::combination_2d, ChartType::pie_2d,  ChartType::xy_2d,
};

Chart chart_of(const std::vector<const char*>& values, ChartType type = ChartType::bar_2d) {
  Chart chart;
  chart.type = type;
  chart.column = "Sales for a Period";
  for (std::size_t row = 0; row < values.size(); ++row)
    chart.rows.push_back({"ROW " + std::to_string(row + 1), values[row]});
  return chart;
}

QImage picture_of(const Chart& chart, QSize size = kSize) {
  return DrawnChart(chart, size, QApplication::font()).image();
}

// Where the pixels of that colour are, and how many.
struct Patch {
  QRect extent;
  int pixels = 0;
};

Patch patch_of(const QImage& picture, const QColor& colour) {
  Patch patch;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != colour.rgb()) continue;
      patch.extent |= QRect(x, y, 1, 1);
      ++patch.pixels;
    }
  return patch;
}

Patch row_patch(const QImage& picture, int row) {
  return patch_of(picture, row_colour(row));
}

// Of letters just above a bar.
int dark_pixels_above(const QImage& picture, const QRect& bar) {
  int dark = 0;
  for (int y = bar.top() - 20; y < bar.top() - 3; ++y)
    for (int x = bar.left(); x <= bar.right(); ++x)
      dark += picture.pixelColor(x, y).lightness() < 128;
  return dark;
}

TEST(DrawnChart, HasABarForEachRowAsHighAsItsValue) {
  const QImage picture = picture_of(chart_of({"1000", "500", "2000"}));
  const QRect first = row_patch(picture, 0).extent;
  const QRect second = row_patch(picture, 1).extent;
  const QRect third = row_patch(picture, 2).extent;
  EXPECT_NEAR(first.height(), 2 * second.height(), 4);
  EXPECT_NEAR(third.height(), 2 * first.height(), 4);
  EXPECT_NEAR(first.bottom(), third.bottom(), 1);
  EXPECT_LT(first.right(), second.left());
  EXPECT_LT(second.right(), third.left());
  EXPECT_EQ(first.width(), third.width());
  EXPECT_GT(row_patch(picture, 0).pixels, 0.95 * first.width() * first.height());
}

TEST(DrawnChart, HangsNegativeValuesBelowZero) {
  for (const ChartType type : {ChartType::bar_2d, ChartType::bar_3d}) {
    const QImage picture = picture_of(chart_of({"900", "-600.5"}, type));
    const QRect up = row_patch(picture, 0).extent;
    const QRect down = row_patch(picture, 1).extent;
    EXPECT_NEAR(up.bottom(), down.top(), 3);
    EXPECT_NEAR(up.height() * 600.5, down.height() * 900, 4 * 900);
  }
}

TEST(DrawnChart, GivesTheDeepTypesFacesBehindTheFront) {
  const QImage flat = picture_of(chart_of({"1000"}));
  const QImage deep = picture_of(chart_of({"1000"}, ChartType::bar_3d));
  const QColor side = row_colour(0).darker(150);
  const QColor top = tinted(row_colour(0), 0.3);
  EXPECT_EQ(patch_of(flat, side).pixels, 0);
  const QRect front = row_patch(deep, 0).extent;
  EXPECT_GT(patch_of(deep, side).pixels, front.height() * 8);
  EXPECT_GT(patch_of(deep, side).extent.right(), front.right() + 8);
  EXPECT_LT(patch_of(deep, top).extent.bottom(), front.top() + 2);
}

TEST(DrawnChart, DrawsEachTypeInAWayOfItsOwn) {
  std::set<QByteArray> pictures;
  for (const ChartType type : kTypes) {
    const QImage picture = picture_of(chart_of({"1000", "700", "1200", "400"}, type));
    pictures.insert(QByteArray(reinterpret_cast<const char*>(picture.constBits()),
                               static_cast<qsizetype>(picture.sizeInBytes())));
    const bool rows_are_tinted = type == ChartType::step_2d;
    if (rows_are_tinted) continue;
    for (int row = 0; row < 4; ++row)
      EXPECT_GT(row_patch(picture, row).pixels, 20) << static_cast<int>(type) << " row " << row;
  }
  EXPECT_EQ(pictures.size(), std::size(kTypes));
}

TEST(DrawnChart, DividesAPieByItsValuesAndLeavesNegativeOnesOut) {
  const QImage picture = picture_of(chart_of({"300", "100", "-50"}, ChartType::pie_2d));
  const double ratio =
      static_cast<double>(row_patch(picture, 0).pixels) / row_patch(picture, 1).pixels;
  EXPECT_NEAR(ratio, 3, 0.1);
  EXPECT_EQ(row_patch(picture, 2).pixels, 0);
}

TEST(DrawnChart, KeepsEveryTypeWholeForFewManyAndOddRows) {
  const std::vector<std::vector<const char*>> tables = {{"0"},
                                                        {"0", "0"},
                                                        {"-5"},
                                                        {"0.001"},
                                                        {"123456789012.5"},
                                                        {"", "12"},
                                                        std::vector<const char*>(40, "7"),
                                                        std::vector<const char*>(200, "1234567")};
  for (const auto& table : tables)
    for (const ChartType type : kTypes) {
      Chart chart = chart_of(table, type);
      chart.legend = true;
      chart.label_location = kAbovePoint;
      for (const QSize size : {kSize, QSize(120, 60)})
        EXPECT_EQ(picture_of(chart, size).size(), size) << table.size();
    }
}

TEST(DrawnChart, SaysThatThereIsNothing) {
  const QImage fresh = picture_of(Chart());
  const QImage none = picture_of(chart_of({}));
  EXPECT_NE(fresh, none);
  EXPECT_GT(patch_of(fresh, kChartFaintInk).pixels, 0);
  EXPECT_GT(patch_of(none, kChartFaintInk).pixels, 0);
  EXPECT_EQ(row_patch(none, 0).pixels, 0);
}

TEST(DrawnChart, PutsColoursFiguresAndLabelsOnlyWhereTheChartSaysSo) {
  Chart chart = chart_of({"1000", "700"});
  const QImage plain = picture_of(chart);
  chart.label_location = kAbovePoint;
  const QImage labelled = picture_of(chart);
  EXPECT_EQ(dark_pixels_above(plain, row_patch(plain, 0).extent), 0);
  EXPECT_GT(dark_pixels_above(labelled, row_patch(labelled, 0).extent), 20);
  chart.label_orientation = kTextUpwards;
  EXPECT_NE(picture_of(chart), labelled);
  chart.legend = true;
  const Patch with_legend = row_patch(picture_of(chart), 0);
  EXPECT_GT(with_legend.extent.right(), kSize.width() * 3 / 5);
}

TEST(DrawnChart, TellsTheExactFigureUnderThePointer) {
  const Chart bars = chart_of({"123456.75", "500"});
  DrawnChart drawn(bars, kSize, QApplication::font());
  const QPointF in_first = row_patch(drawn.image(), 0).extent.center();
  EXPECT_EQ(drawn.tip_at(in_first).toStdString(), "ROW 1\n1,23,456.75");
  EXPECT_EQ(drawn.tip_at({1, 1}), QString());

  DrawnChart pie(chart_of({"300", "100"}, ChartType::pie_2d), kSize, QApplication::font());
  const QPointF in_second = row_patch(pie.image(), 1).extent.center();
  EXPECT_EQ(pie.tip_at(in_second).toStdString(), "ROW 2\n100");
  EXPECT_EQ(pie.tip_at({1, 1}), QString());
}

TEST(Labels, KeepClearOfEachOther) {
  const std::vector<QRectF> places = {{0, 0, 10, 10}, {8, 0, 10, 10}, {20, 0, 10, 10}};
  EXPECT_EQ(without_overlaps(places, {0, 1, 2}), (std::vector<bool>{true, false, true}));
  EXPECT_EQ(without_overlaps(places, {1, 0, 2}), (std::vector<bool>{false, true, true}));
  EXPECT_EQ(spread({1, 2, 50}, 10, 0, 100), (std::vector<double>{1, 11, 50}));
  EXPECT_EQ(spread({95, 96, 97}, 10, 0, 100), (std::vector<double>{80, 90, 100}));
}

TEST(PictureClipboard, SavesABitmapThatReadsBackWithItsBars) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("sales of may.bmp");
  const ChartPictures pictures = make_chart_pictures();
  const Chart chart = chart_of({"1000", "500"});
  pictures.copy(chart);
  EXPECT_EQ(row_patch(QApplication::clipboard()->image(), 1).extent.height() > 50, true);
  pictures.save_copied(file.toStdString());

  QFile bytes(file);
  ASSERT_TRUE(bytes.open(QIODevice::ReadOnly));
  EXPECT_EQ(bytes.peek(2), "BM");
  const QImage saved(file, "bmp");
  EXPECT_NEAR(row_patch(saved, 0).extent.height(), 2 * row_patch(saved, 1).extent.height(), 4);
}

TEST(PictureClipboard, CopiesAChartAsItsWindowShowsIt) {
  const Chart chart = chart_of({"1000", "500"});
  ChartView view;
  view.resize(640, 400);
  view.set_chart(&chart);
  view.show();
  make_chart_pictures().copy(chart);
  EXPECT_EQ(QApplication::clipboard()->image().size(), view.viewport()->size());
  view.set_chart(nullptr);
  make_chart_pictures().copy(chart);
  EXPECT_NE(QApplication::clipboard()->image().size(), view.viewport()->size());
}

TEST(PictureClipboard, SaysWhyAFileCannotBeSaved) {
  const ChartPictures pictures = make_chart_pictures();
  const auto failure = [&](const std::string& path) -> std::string {
    try {
      pictures.save_copied(path);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "saved";
  };
  QApplication::clipboard()->clear();
  EXPECT_NE(failure("/tmp/x.bmp").find("no picture on the clipboard"), std::string::npos);
  pictures.copy(chart_of({"1"}));
  EXPECT_NE(failure("/nowhere/x.bmp").find("/nowhere/x.bmp"), std::string::npos);
  const QTemporaryDir folder;
  EXPECT_NE(failure(folder.path().toStdString()).find("it is not a file"), std::string::npos);
}

TEST(ChartView, ShowsTheChartAnewWhenItChanges) {
  Chart chart = chart_of({"1000"});
  ChartView view;
  view.resize(kSize);
  view.set_chart(&chart);
  const int low = row_patch(view.grab().toImage(), 0).extent.height();
  EXPECT_GT(low, 100);
  chart.rows.push_back({"ROW 2", "4000"});
  view.refresh();
  EXPECT_NEAR(row_patch(view.grab().toImage(), 0).extent.height(), low / 4.0, low / 8.0);
}

}  // namespace
}  // namespace tela
