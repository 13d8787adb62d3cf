// Cadastral points in a drawing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "services/display/displays.h"
#include "support/cadastral_jobs.h"

namespace {

class CadastralDisplay : public testing::Test {
 protected:
  CadastralDisplay() {
    document.GetCts()->Survey().fiducials = {{"PF01", 4952426, 1632365, 11, "roof"},
                                             {"PF02", UndefinedValue, 1632365, 11, ""}};
  }
  std::vector<cad::Entity> Drawn(cad::Origin origin) const {
    std::vector<cad::Entity> drawn;
    for (const cad::Entity& entity : engine.Entities()) {
      if (entity.origin == origin) drawn.push_back(entity);
    }
    return drawn;
  }

  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();
  CDocSymbolManager symbols{&engine};
  CDisCts display{&engine, &symbols, document.GetCts()};
};

TEST_F(CadastralDisplay, AFiducialPointIsABlockWithItsNameAndDescription) {
  display.CreaTutto(false);
  const auto drawn = Drawn(cad::Origin::kCadastre);
  ASSERT_EQ(drawn.size(), 1U);  // the other one has no place
  const auto& insert = std::get<cad::InsertShape>(drawn[0].shape);
  EXPECT_EQ(insert.at.getX(), 1632365);
  EXPECT_EQ(insert.at.getY(), 4952426);
  EXPECT_EQ(insert.attributes[0].text, "PF01");
  EXPECT_EQ(insert.attributes[1].text, "roof");
  EXPECT_EQ(insert.attributes[2].text, "");
}

TEST_F(CadastralDisplay, ExplodedItIsAPointWithTexts) {
  display.CreaTutto(true);
  CDisPtNome(&engine, &symbols, &document).AddAllNames(true);
  EXPECT_GT(Drawn(cad::Origin::kCadastre).size(), 2U);
  const auto names = Drawn(cad::Origin::kPointNames);
  ASSERT_EQ(names.size(), 1U);
  EXPECT_EQ(std::get<cad::TextShape>(names[0].shape).text, "PF01");
}

TEST_F(CadastralDisplay, ItGoesAgainAndNothingElseDoes) {
  engine.Add({1, cad::kByLayer, false, cad::Origin::kGps, cad::PointShape{}});
  display.CreaTutto(false);
  display.DelTutto();
  EXPECT_TRUE(Drawn(cad::Origin::kCadastre).empty());
  EXPECT_EQ(Drawn(cad::Origin::kGps).size(), 1U);
}

TEST_F(CadastralDisplay, ItLiesOnTheTargetDrawingOfTheCadastre) {
  const int target = engine.AddDrawing(0, "MAP", true, false, false);
  document.GetCts()->SetTargetDrawing(target);
  display.CreaTutto(false);
  EXPECT_EQ(Drawn(cad::Origin::kCadastre)[0].drawing, target);
}

TEST_F(CadastralDisplay, WithoutCadastralDataNothingIsDrawn) {
  CDisCts(&engine, &symbols, nullptr).CreaTutto(false);
  EXPECT_TRUE(engine.Entities().empty());
}

}  // namespace
