// Drawings that no job can hold, and what is said of them.
#include <gtest/gtest.h>

#include "support/stored_drawings.h"

namespace {

// What a load of a drawing with these members complains of.
template <class Error = JobError>
std::string Complaint(const std::string& members) {
  return stored_jobs::ComplaintOfJson<Error>(R"({"drawing":{)" + members + "}}");
}

/// Of an entity with these members, after another one.
std::string OfEntity(const std::string& members) {
  return Complaint(R"("entities":[{"type":"point"},{)" + members + "}]");
}
std::string UnknownKey(const std::string& members) { return Complaint<JobKeyError>(members); }

TEST(StoreDrawingRefusal, AnEntityOfAnUnknownType) {
  const std::string reason =
      "type: expected \"point\", \"line\", \"polyline\", \"circle\", \"arc\", \"ellipse\", "
      "\"text\", \"insert\", \"face\" or \"solid\"";
  EXPECT_EQ(OfEntity(R"("type":"spline")"), "drawing.entities[1]." + reason);
  EXPECT_EQ(OfEntity(R"("type":"Line")"), "drawing.entities[1]." + reason);
  EXPECT_EQ(OfEntity(""), "drawing.entities[1]." + reason);
  EXPECT_EQ(Complaint(R"("blocks":[{"name":"B","entities":[{"type":"x"}]}])"),
            "drawing.blocks[0].entities[0]." + reason);
}

TEST(StoreDrawingRefusal, AFaceOrASolidOfOtherThanThreeOrFourPoints) {
  for (const std::string type : {"face", "solid"}) {
    const auto points = [&](const std::string& rows) {
      return OfEntity(R"("type":")" + type + R"(","points":[)" + rows + "]");
    };
    const std::string reason = "drawing.entities[1].points: expected three or four points";
    EXPECT_EQ(points(""), reason);
    EXPECT_EQ(points("[0,0,0],[1,0,0]"), reason);
    EXPECT_EQ(points("[0,0,0],[1,0,0],[1,1,0]"), "none");
    EXPECT_EQ(points("[0,0,0],[1,0,0],[1,1,0],[0,1,0]"), "none");
    EXPECT_EQ(points("[0,0,0],[1,0,0],[1,1,0],[0,1,0],[0,0,0]"), reason);
    EXPECT_EQ(OfEntity(R"("type":")" + type + "\""), reason);
  }
}

TEST(StoreDrawingRefusal, OtherThanABulgeForEachPoint) {
  const auto bulges = [](const std::string& list) {
    return OfEntity(R"("type":"polyline","points":[[0,0,0],[1,0,0]],"bulges":)" + list);
  };
  const std::string reason = "drawing.entities[1].bulges: expected as many as there are points";
  EXPECT_EQ(bulges("[]"), "none");
  EXPECT_EQ(bulges("[0,1]"), "none");
  EXPECT_EQ(bulges("[0]"), reason);
  EXPECT_EQ(bulges("[0,0,0]"), reason);
  EXPECT_EQ(OfEntity(R"("type":"polyline","bulges":[0,1],"points":[[0,0,0],[1,0,0]])"), "none");
  EXPECT_EQ(OfEntity(R"("type":"polyline","bulges":[0,1])"), reason);
}

TEST(StoreDrawingRefusal, ABulgeThatIsNoNumber) {
  const auto bulges = [](const std::string& list) {
    return OfEntity(R"("type":"polyline","points":[[0,0,0]],"bulges":)" + list);
  };
  const std::string place = "drawing.entities[1].bulges";
  EXPECT_EQ(bulges("[true]"), place + "[0]: expected a number or null, found true");
  EXPECT_EQ(bulges("[0,\"1\"]"), place + "[1]: expected a number or null, found \"1\"");
  EXPECT_EQ(bulges("[[0]]"), place + "[0]: a list does not belong here");
  EXPECT_EQ(bulges("[{}]"), place + "[0]: an object does not belong here");
  EXPECT_EQ(bulges("{}"), place + ": an object does not belong here");
  EXPECT_EQ(bulges("1"), place + ": expected a list, found 1");
  EXPECT_EQ(bulges("null"), place + ": expected a list, found null");
}

TEST(StoreDrawingRefusal, AnInsertOfABlockThatIsNowhere) {
  EXPECT_EQ(OfEntity(R"("type":"insert","block":"B")"),
            "drawing.entities[1].block: there is no block \"B\"");
  EXPECT_EQ(OfEntity(R"("type":"insert")"), "drawing.entities[1].block: there is no block \"\"");
  EXPECT_EQ(Complaint(R"("blocks":[{"name":"A","entities":[{"type":"insert","block":"C"}]},
                                   {"name":"B"}],
                         "entities":[{"type":"insert","block":"A"},{"type":"insert","block":"C"}])"),
            "drawing.blocks[0].entities[0].block: there is no block \"C\"");
  EXPECT_EQ(Complaint(R"("entities":[{"type":"insert","block":"A"},{"type":"insert","block":"a"},
                                     {"type":"insert","block":"B"}],"blocks":[{"name":"A"}])"),
            "drawing.entities[2].block: there is no block \"B\"");
}

TEST(StoreDrawingRefusal, ANameThatIsTaken) {
  EXPECT_EQ(Complaint(R"("layers":[{"name":"A"},{"name":"B"},{"name":"a"}])"),
            "drawing.layers[2].name: there is a layer of that name already");
  EXPECT_EQ(Complaint(R"("blocks":[{"name":"A"},{"name":"a"}])"),
            "drawing.blocks[1].name: there is a block of that name already");
  EXPECT_EQ(Complaint(R"("layers":[{"name":"A"}],"blocks":[{"name":"A"}])"), "none");
}

TEST(StoreDrawingRefusal, AColourThatThereIsNot) {
  EXPECT_EQ(OfEntity(R"("type":"point","color":256)"), "none");
  EXPECT_EQ(OfEntity(R"("type":"point","color":257)"),
            "drawing.entities[1].color: expected a colour index from 0 to 256");
  EXPECT_EQ(OfEntity(R"("type":"point","color":-1)"),
            "drawing.entities[1].color: expected a whole number from 0 to 65535, found -1");
  EXPECT_EQ(OfEntity(R"("type":"point","color":null)"),
            "drawing.entities[1].color: expected a whole number from 0 to 65535, found null");
  EXPECT_EQ(Complaint(R"("layers":[{"color":1.5}])"),
            "drawing.layers[0].color: expected a whole number from 0 to 4294967295, found 1.5");
}

TEST(StoreDrawingRefusal, AKeyThatDoesNotBelongThere) {
  EXPECT_EQ(UnknownKey(R"("entity":[])"), "drawing: unknown key \"entity\"");
  EXPECT_EQ(UnknownKey(R"("layers":[{"colour":1}])"), "drawing.layers[0]: unknown key \"colour\"");
  EXPECT_EQ(UnknownKey(R"("blocks":[{},{"layer":""}])"),
            "drawing.blocks[1]: unknown key \"layer\"");
  EXPECT_EQ(UnknownKey(R"("blocks":[{"attributes":[{"text":""}]}])"),
            "drawing.blocks[0].attributes[0]: unknown key \"text\"");
  EXPECT_EQ(UnknownKey(R"("blocks":[{"entities":[{"width":1}]}])"),
            "drawing.blocks[0].entities[0]: unknown key \"width\"");
  EXPECT_EQ(UnknownKey(R"("entities":[{"Type":"line"}])"),
            "drawing.entities[0]: unknown key \"Type\"");
}

TEST(StoreDrawingRefusal, AValueOfAnotherType) {
  EXPECT_EQ(Complaint(R"("layers":{})"), "drawing.layers: an object does not belong here");
  EXPECT_EQ(Complaint(R"("entities":null)"), "drawing.entities: expected a list, found null");
  EXPECT_EQ(Complaint(R"("entities":[5])"), "drawing.entities[0]: expected an object, found 5");
  EXPECT_EQ(Complaint(R"("entities":[[]])"), "drawing.entities[0]: a list does not belong here");
  EXPECT_EQ(OfEntity(R"("at":[1,2])"), "drawing.entities[1].at: expected a list of 3");
  EXPECT_EQ(OfEntity(R"("radius":"1")"),
            "drawing.entities[1].radius: expected a number or null, found \"1\"");
  EXPECT_EQ(OfEntity(R"("closed":1)"),
            "drawing.entities[1].closed: expected true or false, found 1");
  EXPECT_EQ(OfEntity(R"("layer":1)"), "drawing.entities[1].layer: expected a text, found 1");
  EXPECT_EQ(OfEntity(R"("points":[[1,2,3],[1,2]])"),
            "drawing.entities[1].points[1]: expected a list of 3");
  EXPECT_EQ(OfEntity(R"("points":[1])"), "drawing.entities[1].points[0]: expected a list, found 1");
  EXPECT_EQ(OfEntity(R"("attributes":[])"),
            "drawing.entities[1].attributes: a list does not belong here");
  EXPECT_EQ(OfEntity(R"("attributes":{"A":1})"),
            "drawing.entities[1].attributes.A: expected a text, found 1");
  EXPECT_EQ(OfEntity(R"("attributes":{"A":{}})"),
            "drawing.entities[1].attributes.A: an object does not belong here");
}

TEST(StoreDrawingRefusal, NullIsAnUndefinedValue) {
  HostDocument document;
  stored_jobs::Read(R"({"drawing":{"entities":[{"type":"circle","center":[1,2,null],"radius":null},
                                               {"type":"text","at":null}]}})",
                    document);
  const auto& entities = document.GetCadEngine()->Entities();
  const auto& circle = std::get<cad::CircleShape>(entities[0].shape);
  EXPECT_EQ(circle.center.getY(), 2);
  EXPECT_FALSE(IsDefined(circle.center.getZ()));
  EXPECT_FALSE(IsDefined(circle.radius));
  EXPECT_FALSE(IsDefined(std::get<cad::TextShape>(entities[1].shape).at.getX()));
}

TEST(StoreDrawingRefusal, EveryCutOfADrawingIsRefused) {
  const TemporaryFolder folder;
  const std::string json = stored_drawings::JobWith(stored_drawings::kDrawing);
  const std::string path = folder.Write("job.json", json);
  for (std::size_t size = json.size() - 2; size-- > 0;) {
    std::filesystem::resize_file(path, size);
    ASSERT_NE(stored_jobs::ComplaintOfLoad(path), "") << size;
  }
}

}  // namespace
