#include "host/cad/dwg/write_tables.h"

#include <utility>

namespace dwg {
namespace {

// Numbers of the classes of version 2000.
constexpr unsigned kDictionaryWithDefault = kFirstClass;
constexpr unsigned kPlaceholder = kFirstClass + 1;
constexpr unsigned kLayout = kFirstClass + 2;

class TableWriter {
 public:
  TableWriter(RecordWriter& records, const FilePlan& plan)
      : records_(records), plan_(plan), is2000_(plan.FileVersion() == Version::k2000) {}

  void WriteAll() {
    WriteControls();
    WriteDictionaries();
    WriteLayers();
    WriteStyles();
    WriteLineTypes();
    WriteView();
    if (is2000_) WriteLayouts();
  }

 private:
  // Names are in capitals in the old version.
  std::string Name(const char* name, const char* inCapitals) const {
    return is2000_ ? name : inCapitals;
  }
  void Control(Type type, Handle handle, std::vector<Handle> entries,
               std::vector<Handle> uncounted = {}) {
    ControlRecord record{type, std::move(entries), std::move(uncounted)};
    records_.Object(type, handle, {}, record);
  }
  template <class Record>
  void Entry(Type type, Handle handle, Handle table, Record record) {
    records_.Object(type, handle, {table, 0, 0}, record);
  }
  // What a dictionary owns tells it of changes.
  template <class Record>
  void Owned(unsigned type, Handle handle, Handle dictionary, Record record) {
    records_.Object(type, handle, {dictionary, 1, dictionary}, record);
  }

  void WriteControls() {
    using namespace fixed;
    std::vector<Handle> blocks;
    for (const int position : plan_.BlockOrder()) {
      blocks.push_back(plan_.HandlesOf(plan_.BlockAt(position)).record);
    }
    std::vector<Handle> layers;
    for (std::size_t i = 0; i < plan_.Layers().size(); ++i) layers.push_back(plan_.LayerHandle(i));
    Control(kBlockControl, kBlocks, std::move(blocks), {kModelSpace, kPaperSpace});
    Control(kLayerControl, kLayers, std::move(layers));
    Control(kStyleControl, kStyles, {fixed::kStyle});
    Control(kLineTypeControl, kLineTypes, {kSolidLine}, {kLineByBlock, kLineByLayer});
    Control(kViewControl, kViews, {});
    Control(kSystemControl, kSystems, {});
    Control(kViewportControl, kViewports, {fixed::kViewport});
    Control(kProgramControl, kPrograms, {fixed::kProgram});
    Control(kDimensionControl, kDimensions, {kDimension});
    Control(kViewportHeaderControl, kViewportHeaders, {});
  }

  void WriteDictionaries() {
    using namespace fixed;
    DictionaryRecord names{{{"ACAD_GROUP", kGroups}, {"ACAD_MLINESTYLE", kMultiLineStyles}}, 0};
    if (is2000_) {
      names.items = {{"ACAD_GROUP", kGroups},
                     {"ACAD_LAYOUT", kLayouts},
                     {"ACAD_MLINESTYLE", kMultiLineStyles},
                     {"ACAD_PLOTSETTINGS", fixed::kPlotSettings},
                     {"ACAD_PLOTSTYLENAME", kPlotStyles}};
    }
    records_.Object(kDictionary, kNames, {}, names);
    Owned(kDictionary, kGroups, kNames, DictionaryRecord{});
    Owned(kDictionary, kMultiLineStyles, kNames,
          DictionaryRecord{{{"Standard", fixed::kMultiLineStyle}}, 0});
    Owned(dwg::kMultiLineStyle, fixed::kMultiLineStyle, kMultiLineStyles,
          MultiLineStyleRecord{"STANDARD"});
  }

  void WriteLayouts() {
    using namespace fixed;
    Owned(kDictionary, fixed::kPlotSettings, kNames, DictionaryRecord{});
    Owned(kDictionaryWithDefault, kPlotStyles, kNames,
          DictionaryRecord{{{"Normal", kPlotStyle}}, kPlotStyle});
    Owned(kPlaceholder, kPlotStyle, kPlotStyles, PlaceholderRecord{});
    Owned(kDictionary, kLayouts, kNames,
          DictionaryRecord{{{"Layout1", kPaperLayout}, {"Model", kModelLayout}}, 0});
    Owned(kLayout, kPaperLayout, kLayouts, LayoutRecord{"Layout1", false, 1, kPaperSpace});
    Owned(kLayout, kModelLayout, kLayouts, LayoutRecord{"Model", true, 0, kModelSpace});
  }

  void WriteLayers() {
    for (std::size_t i = 0; i < plan_.Layers().size(); ++i) {
      const cad_writer::PlannedLayer& layer = plan_.Layers()[i];
      LayerRecord record;
      record.name = layer.name;
      record.isOff = !layer.isVisible;
      record.isLocked = layer.isLocked;
      record.color = static_cast<std::uint16_t>(layer.color);
      record.plotStyle = fixed::kPlotStyle;
      record.lineType = fixed::kSolidLine;
      Entry(kLayer, plan_.LayerHandle(i), fixed::kLayers, record);
    }
  }

  void WriteStyles() {
    using namespace fixed;
    const std::string standard = Name("Standard", "STANDARD");
    Entry(dwg::kStyle, fixed::kStyle, kStyles, StyleRecord{standard, "txt"});
    Entry(dwg::kProgram, fixed::kProgram, kPrograms, ProgramRecord{"ACAD"});
    Entry(kDimensionStyle, kDimension, kDimensions, DimensionStyleRecord{standard, fixed::kStyle});
  }

  void WriteLineTypes() {
    using namespace fixed;
    Entry(kLineType, kLineByBlock, kLineTypes, LineTypeRecord{Name("ByBlock", "BYBLOCK"), ""});
    Entry(kLineType, kLineByLayer, kLineTypes, LineTypeRecord{Name("ByLayer", "BYLAYER"), ""});
    Entry(kLineType, kSolidLine, kLineTypes,
          LineTypeRecord{Name("Continuous", "CONTINUOUS"), "Solid line"});
  }

  // Programs open the drawing with all of it in view.
  void WriteView() {
    const cad_writer::View view = cad_writer::ViewOf(plan_.DrawingExtent());
    ViewportRecord record{Name("*Active", "*ACTIVE"),
                          view.height,
                          view.height * cad_writer::View::kWidthByHeight,
                          {view.x, view.y, 0}};
    Entry(dwg::kViewport, fixed::kViewport, fixed::kViewports, record);
  }

  RecordWriter& records_;
  const FilePlan& plan_;
  bool is2000_;
};

class DrawingWriter {
 public:
  DrawingWriter(RecordWriter& records, const FilePlan& plan)
      : records_(records), plan_(plan), entities_(records, plan) {}

  // The records of the blocks come last: they name the inserts.
  void WriteAll() {
    std::vector<EntityChain> chains;
    for (const int position : plan_.BlockOrder()) chains.push_back(entities_.WriteBlock(position));
    const EntityChain model = entities_.WriteModel();
    WriteSpace(kModel, model);
    WriteSpace(kPaper, {});
    for (std::size_t i = 0; i < chains.size(); ++i) WriteBlock(plan_.BlockOrder()[i], chains[i]);
  }

 private:
  struct SpaceHandles {
    BlockHandles block;
    Handle layout;
    Space space;
    const char* name;
    const char* inCapitals;
  };
  static constexpr SpaceHandles kModel{{fixed::kModelSpace, fixed::kModelBegin, fixed::kModelEnd},
                                       fixed::kModelLayout,
                                       Space::kModel,
                                       "*Model_Space",
                                       "*MODEL_SPACE"};
  static constexpr SpaceHandles kPaper{{fixed::kPaperSpace, fixed::kPaperBegin, fixed::kPaperEnd},
                                       fixed::kPaperLayout,
                                       Space::kPaper,
                                       "*Paper_Space",
                                       "*PAPER_SPACE"};

  void WriteSpace(const SpaceHandles& space, const EntityChain& chain) {
    const bool is2000 = plan_.FileVersion() == Version::k2000;
    BlockRecord record;
    record.name = is2000 ? space.name : space.inCapitals;
    record.layout = is2000 ? space.layout : 0;
    EntityHead head;
    head.space = space.space;
    WriteRecords(space.block, chain, record, head);
  }

  void WriteBlock(int position, const EntityChain& chain) {
    const cad::Block& block = plan_.Engine().Blocks()[static_cast<std::size_t>(position)];
    const cad_writer::PlannedBlock& planned = plan_.BlockAt(position);
    BlockRecord record;
    record.name = planned.name;
    record.base = block.base;
    record.hasDefinitions = !block.attributes.empty();
    record.inserts = entities_.InsertsOf(position);
    EntityHead head;
    head.space = Space::kOwner;
    head.owner = plan_.HandlesOf(planned).record;
    WriteRecords(plan_.HandlesOf(planned), chain, record, head);
  }

  void WriteRecords(const BlockHandles& handles, const EntityChain& chain, BlockRecord& record,
                    EntityHead& head) {
    record.begin = handles.begin;
    record.end = handles.end;
    record.first = chain.first;
    record.last = chain.last;
    records_.Object(kBlockRecord, handles.record, {fixed::kBlocks, 0, 0}, record);
    head.hasNeighbours = true;
    head.layer = fixed::kFirstLayer;
    BlockBeginRecord begin{record.name};
    records_.Entity(kBlockBegin, handles.begin, head, begin);
    EndRecord end;
    records_.Entity(kBlockEnd, handles.end, head, end);
  }

  RecordWriter& records_;
  const FilePlan& plan_;
  EntityWriter entities_;
};

}  // namespace

void WriteTables(RecordWriter& records, const FilePlan& plan) {
  TableWriter(records, plan).WriteAll();
}

void WriteDrawing(RecordWriter& records, const FilePlan& plan) {
  DrawingWriter(records, plan).WriteAll();
}

FixedHandles HandlesFor(Version version) {
  using namespace fixed;
  FixedHandles handles{};
  handles.blocks = kBlocks;
  handles.layers = kLayers;
  handles.styles = kStyles;
  handles.lineTypes = kLineTypes;
  handles.views = kViews;
  handles.systems = kSystems;
  handles.viewports = kViewports;
  handles.programs = kPrograms;
  handles.dimensions = kDimensions;
  handles.viewportHeaders = kViewportHeaders;
  handles.groups = kGroups;
  handles.multiLineStyles = kMultiLineStyles;
  handles.names = kNames;
  handles.layer = kFirstLayer;
  handles.style = fixed::kStyle;
  handles.lineByLayer = kLineByLayer;
  handles.lineByBlock = kLineByBlock;
  handles.solidLine = kSolidLine;
  handles.dimension = kDimension;
  handles.multiLineStyle = fixed::kMultiLineStyle;
  handles.paperSpace = kPaperSpace;
  handles.modelSpace = kModelSpace;
  if (version != Version::k2000) return handles;
  handles.layouts = kLayouts;
  handles.plotSettings = fixed::kPlotSettings;
  handles.plotStyles = kPlotStyles;
  return handles;
}

}  // namespace dwg
