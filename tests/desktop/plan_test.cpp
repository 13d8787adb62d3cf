#include <gtest/gtest.h>

#include <QImage>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWheelEvent>

#include "apps/desktop/plan/layer_list.h"
#include "apps/desktop/plan/plan_picture.h"
#include "apps/desktop/plan/plan_view.h"
#include "apps/desktop/plan/terrain_legs.h"

namespace {

using plan::PlanModel;
using plan::PlanView;
using plan::ViewWindow;

void AddKnown(HostDocument& document, const char* name, double x, double y) {
  CLibPnt& library = *document.GetLibPnt();
  if (library.GetGrpArSize() == 0) library.AddGrp(false);
  library.AddPtn(0, false)->SetNomCoord(name, L"C", x, y, 5);
}

// A square of two triangles, 100 m wide.
void AddTerrain(HostDocument& document) {
  CDtmPrj& model = *document.GetLibDtm()->AddPrj(false);
  model.SetName("Ground");
  for (const auto& [x, y] : {std::pair{0, 0}, {100, 0}, {100, 100}, {0, 100}}) {
    model.GetTris().AddTriVrt({static_cast<double>(x), static_cast<double>(y), 10});
  }
  model.GetTris().AddTri(0, 1, 2);
  model.GetTris().AddTri(2, 3, 0);
}

ViewWindow Fitted(const PlanModel& model, int width = 400, int height = 300) {
  ViewWindow view;
  view.Resize(width, height);
  view.Fit(model.Extent());
  return view;
}

bool IsWhite(const QImage& image, const plot::Place& pixel, int around) {
  for (int y = -around; y <= around; ++y) {
    for (int x = -around; x <= around; ++x) {
      const QPoint at(static_cast<int>(pixel.x) + x, static_cast<int>(pixel.y) + y);
      if (image.valid(at) && image.pixel(at) != 0xFFFFFFFF) return false;
    }
  }
  return true;
}

QImage Picture(const PlanModel& model, const ViewWindow& view) {
  return plan::PaintPlan(model, view, {});
}

void Click(QWidget& widget, const QPointF& at) {
  QMouseEvent press(QEvent::MouseButtonPress, at, at, Qt::LeftButton, Qt::LeftButton, {});
  QMouseEvent release(QEvent::MouseButtonRelease, at, at, Qt::LeftButton, Qt::NoButton, {});
  QApplication::sendEvent(&widget, &press);
  QApplication::sendEvent(&widget, &release);
}

void Drag(QWidget& widget, const QPointF& from, const QPointF& to) {
  QMouseEvent press(QEvent::MouseButtonPress, from, from, Qt::LeftButton, Qt::LeftButton, {});
  QMouseEvent move(QEvent::MouseMove, to, to, Qt::NoButton, Qt::LeftButton, {});
  QMouseEvent release(QEvent::MouseButtonRelease, to, to, Qt::LeftButton, Qt::NoButton, {});
  for (QMouseEvent* const event : {&press, &move, &release}) {
    QApplication::sendEvent(&widget, event);
  }
}

TEST(ViewWindow, PixelsAndMetresAreEachOthersInverse) {
  ViewWindow view;
  view.Resize(800, 600);
  plot::Box box;
  box.Add({1'500'000, 5'000'000});
  box.Add({1'500'400, 5'000'900});
  view.Fit(box);
  const plot::Place place = view.ToMetres(view.ToPixels({1'500'123.25, 5'000'456.5}));
  EXPECT_NEAR(place.x, 1'500'123.25, 1e-6);
  EXPECT_NEAR(place.y, 5'000'456.5, 1e-6);
}

TEST(ViewWindow, FitShowsAllOfTheBoxWithNorthUp) {
  ViewWindow view;
  view.Resize(800, 600);
  plot::Box box;
  box.Add({10, 20});
  box.Add({110, 420});
  view.Fit(box);
  EXPECT_TRUE(view.Shown().Holds({10, 20}));
  EXPECT_TRUE(view.Shown().Holds({110, 420}));
  EXPECT_LT(view.ToPixels({10, 420}).y, view.ToPixels({10, 20}).y);
}

TEST(ViewWindow, ZoomKeepsWhatIsUnderThePointer) {
  ViewWindow view;
  view.Resize(800, 600);
  const plot::Place before = view.ToMetres({200, 100});
  view.ZoomAt({200, 100}, 3);
  const plot::Place after = view.ToMetres({200, 100});
  EXPECT_NEAR(after.x, before.x, 1e-9);
  EXPECT_NEAR(after.y, before.y, 1e-9);
  EXPECT_NEAR(view.MetresPerPixel(), 1.0 / 3, 1e-12);
}

TEST(ViewWindow, ZoomEndsSomewhere) {
  ViewWindow view;
  for (int i = 0; i < 500; ++i) view.ZoomAt({0, 0}, 2);
  EXPECT_GT(view.MetresPerPixel(), 0);
  for (int i = 0; i < 500; ++i) view.ZoomAt({0, 0}, 0.5);
  EXPECT_LT(view.MetresPerPixel(), 1e6);
}

TEST(PlanTerrain, EachSideIsThereOnce) {
  HostDocument document;
  AddTerrain(document);
  EXPECT_EQ(plan::TriangleSides(*document.GetLibDtm()->GetPrjAt(0)).size(), 5u);
}

TEST(PlanModel, OfAnEmptyJobHasNothing) {
  HostDocument document;
  const PlanModel model(document);
  EXPECT_TRUE(model.Extent().IsEmpty());
  EXPECT_TRUE(model.Layers().empty());
}

TEST(PlanModel, HasALayerForEachThingThatCanBeShown) {
  HostDocument document;
  AddKnown(document, "K1", 0, 0);
  AddTerrain(document);
  document.GetCadEngine()->Add({.drawing = 1, .shape = cad::LineShape{{0, 0, 0}, {50, 50, 0}}});
  std::vector<std::string> names;
  const PlanModel model(document);
  for (const plan::PlanLayer& layer : model.Layers()) names.push_back(layer.name);
  EXPECT_EQ(names, (std::vector<std::string>{"Known points", "Names", "Codes", "0", "Ground"}));
}

TEST(PlanModel, EntitiesOfABlockLieWhereItIsInserted) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  cad::Block block;
  block.name = "B";
  block.base = {1, 0, 0};
  block.entities.push_back({.shape = cad::LineShape{{1, 0, 0}, {2, 0, 0}}});
  cad::InsertShape insert;
  insert.block = engine.AddBlock(std::move(block));
  insert.at = {10, 20, 0};
  insert.scale = {3, 3, 1};
  insert.rotation = 90;
  engine.Add({.shape = insert});
  const auto parts = plot::DrawingsOf(engine);
  ASSERT_EQ(parts[0].legs.size(), 1u);
  EXPECT_NEAR(parts[0].legs[0].from.x, 10, 1e-9);
  EXPECT_NEAR(parts[0].legs[0].from.y, 20, 1e-9);
  EXPECT_NEAR(parts[0].legs[0].to.x, 10, 1e-9);
  EXPECT_NEAR(parts[0].legs[0].to.y, 23, 1e-9);
}

TEST(PlanModel, BlocksThatInsertThemselvesEnd) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  cad::Block empty;
  empty.name = "B";
  cad::InsertShape itself;
  itself.block = engine.AddBlock(std::move(empty));
  const int block = itself.block;
  engine.BlockAt(block).entities.push_back({.shape = itself});
  engine.BlockAt(block).entities.push_back({.shape = cad::PointShape{{1, 1, 0}}});
  engine.Add({.shape = itself});
  EXPECT_FALSE(plot::DrawingsOf(engine).front().legs.empty());
}

TEST(PlanModel, HalfACircleOfABulgeBowsToTheRight) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  engine.Add({.shape = cad::PolylineShape{{{0, 0, 0}, {10, 0, 0}}, {1}, false}});
  plot::Box box;
  const auto parts = plot::DrawingsOf(engine);
  for (const plot::Leg& leg : parts[0].legs) box.Add(leg.from);
  EXPECT_NEAR(box.low, -5, 1e-6);
  EXPECT_NEAR(box.high, 0, 1e-6);
}

TEST(PlanPainting, APointIsSeenWhereItLies) {
  HostDocument document;
  AddKnown(document, "K1", 0, 0);
  AddKnown(document, "K2", 100, 80);
  const PlanModel model(document);
  const ViewWindow view = Fitted(model);
  const QImage image = Picture(model, view);
  EXPECT_FALSE(IsWhite(image, view.ToPixels({0, 0}), 3));
  EXPECT_FALSE(IsWhite(image, view.ToPixels({100, 80}), 3));
  EXPECT_TRUE(IsWhite(image, view.ToPixels({50, 60}), 3));
}

TEST(PlanPainting, WhatIsOffIsNotSeen) {
  HostDocument document;
  AddKnown(document, "K1", 0, 0);
  AddKnown(document, "K2", 100, 80);
  PlanModel model(document);
  for (std::size_t i = 0; i < model.Layers().size(); ++i) model.SetVisible(i, false);
  const ViewWindow view = Fitted(model);
  EXPECT_TRUE(IsWhite(Picture(model, view), view.ToPixels({100, 80}), 5));
}

TEST(PlanPainting, ManyPointsAreDotsAndFewAreSymbols) {
  HostDocument document;
  for (int i = 0; i < 5'000; ++i) AddKnown(document, "K", i % 100, i / 100);
  const PlanModel model(document);
  ViewWindow view = Fitted(model);
  EXPECT_TRUE(plan::SymbolsIn(model, view).empty());
  const QImage image = Picture(model, view);
  EXPECT_FALSE(IsWhite(image, view.ToPixels({99, 49}), 1));
  view.ZoomAt(view.ToPixels({50, 25}), 20);
  EXPECT_FALSE(plan::SymbolsIn(model, view).empty());
}

TEST(PlanPainting, TrianglesAreLinesNearByAndFromAfar) {
  HostDocument document;
  CDtmPrj& ground = *document.GetLibDtm()->AddPrj(false);
  constexpr int kSide = 60;
  for (int i = 0; i < kSide * kSide; ++i) {
    ground.GetTris().AddTriVrt({static_cast<double>(i % kSide), static_cast<double>(i / kSide), 0});
  }
  for (int row = 0; row + 1 < kSide; ++row) {
    for (int column = 0; column + 1 < kSide; ++column) {
      const int a = row * kSide + column;
      ground.GetTris().AddTri(a, a + 1, a + kSide);
      ground.GetTris().AddTri(a + 1, a + kSide + 1, a + kSide);
    }
  }
  const PlanModel model(document);
  const ViewWindow afar = Fitted(model, 120, 120);
  EXPECT_FALSE(IsWhite(Picture(model, afar), afar.ToPixels({30.4, 30.3}), 1));
  ViewWindow near = Fitted(model, 400, 400);
  near.ZoomAt(near.ToPixels({30, 30}), 20);
  const QImage image = Picture(model, near);
  EXPECT_FALSE(IsWhite(image, near.ToPixels({30, 30.5}), 1));
  EXPECT_TRUE(IsWhite(image, near.ToPixels({30.25, 30.25}), 2));
}

TEST(PlanPainting, NothingOfAFarAwayViewIsFollowedForEver) {
  HostDocument document;
  AddKnown(document, "far", 1e14, -1e14);
  AddKnown(document, "near", 0, 0);
  const PlanModel model(document);
  EXPECT_FALSE(Picture(model, Fitted(model)).isNull());
}

cad::Entity Line(double fromX, double fromY, double toX, double toY) {
  return {.drawing = 1, .shape = cad::LineShape{{fromX, fromY, 0}, {toX, toY, 0}}};
}

TEST(PlanPicture, WhatIsCloseTogetherIsDrawnAsItIs) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  engine.Add(Line(0, 0, 1000, 800));
  // A ring of short lines about a place where nothing is.
  constexpr int kLines = 200;
  constexpr double kRadius = 40;
  for (int i = 0; i < kLines; ++i) {
    const double from = 2 * M_PI * i / kLines;
    const double to = 2 * M_PI * (i + 1) / kLines;
    engine.Add(Line(700 + kRadius * std::cos(from), 200 + kRadius * std::sin(from),
                    700 + kRadius * std::cos(to), 200 + kRadius * std::sin(to)));
  }
  const PlanModel model(document);
  const ViewWindow view = Fitted(model);
  const QImage image = Picture(model, view);
  EXPECT_TRUE(IsWhite(image, view.ToPixels({700, 200}), 5));
  EXPECT_FALSE(IsWhite(image, view.ToPixels({700 + kRadius, 200}), 1));
}

TEST(PlanPicture, OfMoreLinesThanPixelsTheEmptyPlacesStayEmpty) {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  // Two heaps of lines, the larger one to the right, and nothing between them.
  constexpr int kLines = 60'000;
  for (int i = 0; i < kLines; ++i) {
    const double x = (i % 4 == 0 ? 0 : 800) + i % 197;
    const double y = i % 809;
    engine.Add(Line(x, y, x + 0.5, y + 0.5));
  }
  const PlanModel model(document);
  const ViewWindow view = Fitted(model);
  const QImage image = Picture(model, view);
  EXPECT_TRUE(IsWhite(image, view.ToPixels({500, 400}), 20));
  EXPECT_FALSE(IsWhite(image, view.ToPixels({100, 400}), 5));
  EXPECT_FALSE(IsWhite(image, view.ToPixels({900, 400}), 5));
}

TEST(PlanFind, FindsAPointBeforeALine) {
  HostDocument document;
  AddKnown(document, "K1", 0, 0);
  AddTerrain(document);
  const PlanModel model(document);
  const ViewWindow view = Fitted(model);
  const plot::Place pixel = view.ToPixels({0, 0});
  const auto found = plan::FindAt(model, view, {pixel.x + 3, pixel.y});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->point, document.GetLibPnt()->GetPtnAt(0, 0));
  EXPECT_EQ(found->text, "Known point K1 · C\nE 0.000  N 0.000  H 5.000");
}

TEST(PlanFind, FindsALineWhereThereIsNoPoint) {
  HostDocument document;
  AddTerrain(document);
  const PlanModel model(document);
  const ViewWindow view = Fitted(model);
  const auto found = plan::FindAt(model, view, view.ToPixels({50, 0}));
  ASSERT_TRUE(found);
  EXPECT_EQ(found->text, "Terrain model Ground");
  EXPECT_FALSE(plan::FindAt(model, view, view.ToPixels({80, 40})));
}

// A view of two points.
class ShownPlan : public testing::Test {
 protected:
  ShownPlan() {
    AddKnown(document, "K1", 0, 0);
    AddKnown(document, "K2", 100, 80);
    view.resize(400, 300);
    view.show();
    view.ShowJob(document);
  }

  HostDocument document;
  PlanView view;
};

TEST_F(ShownPlan, ClickTellsWhatIsThere) {
  const CEgn* picked = nullptr;
  QObject::connect(&view, &PlanView::Picked, [&](const plan::Found& f) { picked = f.point; });
  const plot::Place pixel = view.Window().ToPixels({100, 80});
  Click(view, {pixel.x, pixel.y});
  EXPECT_EQ(picked, document.GetLibPnt()->GetPtnAt(0, 1));
  Click(view, {200, 60});
  EXPECT_EQ(picked, nullptr);
}

TEST_F(ShownPlan, DragMovesThePaperWithThePointer) {
  const plot::Place before = view.Window().ToPixels({0, 0});
  Drag(view, {100, 100}, {160, 130});
  const plot::Place after = view.Window().ToPixels({0, 0});
  EXPECT_NEAR(after.x - before.x, 60, 1e-6);
  EXPECT_NEAR(after.y - before.y, 30, 1e-6);
}

TEST_F(ShownPlan, WheelZoomsAboutThePointer) {
  const plot::Place there = view.Window().ToMetres({300, 50});
  const double before = view.Window().MetresPerPixel();
  QWheelEvent wheel({300, 50}, view.mapToGlobal(QPointF(300, 50)), {}, {0, 120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&view, &wheel);
  EXPECT_LT(view.Window().MetresPerPixel(), before);
  EXPECT_NEAR(view.Window().ToPixels(there).x, 300, 1e-6);
  EXPECT_NEAR(view.Window().ToPixels(there).y, 50, 1e-6);
}

TEST(PlanView, LayersThatWereOffStayOffWhenTheJobIsShownAnew) {
  HostDocument document;
  AddKnown(document, "K1", 0, 0);
  PlanView view;
  view.ShowJob(document);
  plan::LayerList list(view);
  ASSERT_EQ(list.item(0)->text(), "Known points");
  list.item(0)->setCheckState(Qt::Unchecked);
  EXPECT_FALSE(view.Model().Layers()[0].isVisible);
  AddKnown(document, "K2", 100, 80);
  view.ShowJob(document);
  EXPECT_FALSE(view.Model().Layers()[0].isVisible);
  EXPECT_EQ(list.item(0)->checkState(), Qt::Unchecked);
}

TEST_F(ShownPlan, HighlightBringsAPointIntoView) {
  for (int i = 0; i < 10; ++i) view.ZoomIn();
  ASSERT_FALSE(view.Window().Shown().Holds({100, 80}));
  view.Highlight(document.GetLibPnt()->GetPtnAt(0, 1));
  EXPECT_TRUE(view.Window().Shown().Holds({100, 80}));
}

}  // namespace
