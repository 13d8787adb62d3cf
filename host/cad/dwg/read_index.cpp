#include "host/cad/dwg/read_index.h"

#include <algorithm>
#include <array>

#include "host/cad/dwg/crc.h"
#include "platform/numbers.h"
#include "services/progress.h"

namespace dwg {
namespace {

using cad_reader::Note;

const char* const kTooShort = ToXlate("the record ends too early");
const char* const kNoSize = ToXlate("the record's size is wrong");
const char* const kOther = ToXlate("the record is not the one that the map says");

struct TypeName {
  unsigned type;
  const char* name;
};
// Of entities that are not read.
constexpr TypeName kNames[] = {{20, "DIMENSION"}, {21, "DIMENSION"},
                               {22, "DIMENSION"}, {23, "DIMENSION"},
                               {24, "DIMENSION"}, {25, "DIMENSION"},
                               {26, "DIMENSION"}, {33, "SHAPE"},
                               {34, "VIEWPORT"},  {36, "SPLINE"},
                               {37, "REGION"},    {38, "3DSOLID"},
                               {39, "BODY"},      {40, "RAY"},
                               {41, "XLINE"},     {43, "OLEFRAME"},
                               {45, "LEADER"},    {46, "TOLERANCE"},
                               {47, "MLINE"},     {74, "OLE2FRAME"},
                               {78, "HATCH"},     {498, "ACAD_PROXY_ENTITY"}};

bool IsEntityType(unsigned type) {
  constexpr unsigned kProxy = 498;
  constexpr unsigned kOleFrame = 74;
  constexpr unsigned kHatch = 78;
  return (type >= kText && type <= 41) || (type >= 43 && type <= 47) || type == kOleFrame ||
         type == kLightPolyline || type == kHatch || type == kProxy;
}

bool IsPart(unsigned type) {
  return type == kAttribute || (type >= kFlatVertex && type <= kPolyfaceFace);
}

bool HasParts(unsigned type) {
  constexpr std::array kWith = {kInsert,        kInsertArray, kFlatPolyline,
                                kSpacePolyline, kPolyface,    kMesh};
  return std::find(kWith.begin(), kWith.end(), type) != kWith.end();
}

// The size in words of 15 bits; the address goes behind them.
std::size_t TakeSize(const File& file, std::size_t& address) {
  BitReader bits = file.Bits(std::min(address, file.Size()), file.Size());
  std::size_t size = 0;
  for (unsigned shift = 0; shift <= 30; shift += 15) {
    const unsigned word = bits.RawShort();
    size |= static_cast<std::size_t>(word & 0x7FFF) << shift;
    address += 2;
    if ((word & 0x8000) == 0) return size;
  }
  throw Damage{kNoSize};
}

// What other programs have added.
void SkipAdditions(BitReader& bits, Handle own) {
  while (const std::uint16_t size = TakeShort(bits)) {
    TakeHandle(bits, own);
    bits.Skip(std::size_t{8} * size);
  }
}

void SkipPicture(BitReader& bits) {
  if (bits.Bits(1) == 0) return;
  const std::uint32_t size = bits.RawLong();
  bits.Skip(std::size_t{8} * size);
}

}  // namespace

RecordIndex::RecordIndex(File& file, cad_reader::Notes& notes) : file_(file), notes_(notes) {
  classes_ = file.ReadClasses();
  const std::vector<MapEntry> map = file.ReadMap();
  records_.reserve(map.size());
  ProgressSteps progress(map.size());
  for (const MapEntry& entry : map) {
    Look(entry);
    progress.Step();
  }
  notes.Count(Note::kDamaged, file.SameHandles());
  notes.Count(Note::kChecksum, file.WrongChecksums());
  CollectParts();
}

void RecordIndex::Look(const MapEntry& entry) {
  IndexedRecord record{entry.handle, entry.address};
  try {
    CountBytes(entry.address);
    OpenRecord open = OpenAt(entry.address);
    if (open.own != entry.handle) throw Damage{kOther};
    if (!open.hasRightChecksum) notes_.Count(Note::kChecksum);
    record.type = static_cast<std::uint16_t>(open.type);
    record.isEntity = open.isEntity;
    if (open.isEntity) {
      unsigned space = 0;
      open.fields.TwoBits(space);
      record.space = static_cast<Space>(space);
    }
    const ClassRecord* const known = ClassOf(open.type);
    if (known != nullptr && known->name == "LWPOLYLINE") record.type = kLightPolyline;
    records_.push_back(record);
  } catch (const Damage& damage) {
    TellDamage(record, damage);
  }
}

// Records cannot be larger than the file together, beside one whose size is damaged; else a small
// file could be read for ever, also when none of them is in order.
void RecordIndex::CountBytes(std::uint32_t address) {
  std::size_t start = address;
  const std::size_t size = TakeSize(file_, start);
  if (start + size <= file_.Size()) bytes_ += size;
  if (bytes_ > 2 * file_.Size()) {
    throw FailureAt(address, Xlate("the records lie one over the other"));
  }
}

OpenRecord RecordIndex::OpenAt(std::uint32_t address) const {
  std::size_t start = address;
  const std::size_t size = TakeSize(file_, start);
  const std::size_t end = start + size;
  if (end + 2 > file_.Size()) throw Damage{kTooShort};
  const bool is2000 = file_.FileVersion() == Version::k2000;
  BitReader bits = file_.Bits(start, end);
  const unsigned type = TakeShort(bits);
  std::size_t dataBits = is2000 ? bits.RawLong() : 0;
  const Handle own = TakeHandle(bits, 0);
  SkipAdditions(bits, own);
  const ClassRecord* const known = ClassOf(type);
  const bool isEntity =
      IsEntityType(type) || (known != nullptr && known->kind == ClassRecord::kEntity);
  if (isEntity) SkipPicture(bits);
  if (!is2000) dataBits = bits.RawLong();
  const std::size_t split = start * 8 + dataBits;
  if (split < bits.Position() || split > end * 8) throw Damage{kNoSize};
  const std::string_view all = file_.Bytes().substr(address, end - address);
  const unsigned crc = static_cast<unsigned>(
      static_cast<unsigned char>(file_.Bytes()[end]) |
      static_cast<unsigned>(static_cast<unsigned char>(file_.Bytes()[end + 1])) << 8);
  return {type, isEntity, own, crc == Crc(kCrcStart, all),
          FieldReader(bits.UpTo(split), bits.From(split), file_.FileVersion(), own)};
}

OpenRecord RecordIndex::Open(const IndexedRecord& record) const { return OpenAt(record.address); }

const ClassRecord* RecordIndex::ClassOf(unsigned type) const {
  const bool isClass = type >= kFirstClass && type - kFirstClass < classes_.size();
  return isClass ? &classes_[type - kFirstClass] : nullptr;
}

std::string RecordIndex::NameOf(unsigned type) const {
  if (const ClassRecord* const known = ClassOf(type)) return known->name;
  for (const TypeName& each : kNames) {
    if (each.type == type) return each.name;
  }
  std::string name = "TYPE ";
  platform::AppendWhole(name, type);
  return name;
}

const IndexedRecord* RecordIndex::Find(Handle handle) const {
  const auto found = std::lower_bound(
      records_.begin(), records_.end(), handle,
      [](const IndexedRecord& record, Handle wanted) { return record.handle < wanted; });
  return found != records_.end() && found->handle == handle ? &*found : nullptr;
}

void RecordIndex::CollectParts() {
  for (const IndexedRecord& record : records_) {
    if (!IsPart(record.type)) continue;
    try {
      OpenRecord open = Open(record);
      EntityHead head;
      Data(open.fields, head);
      References(open.fields, head);
      parts_.emplace_back(head.owner, &record);
    } catch (const Damage& damage) {
      TellDamage(record, damage);
    }
  }
  std::stable_sort(parts_.begin(), parts_.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  CountLostParts();
}

void RecordIndex::CountLostParts() {
  const IndexedRecord* owner = nullptr;
  for (const auto& [handle, part] : parts_) {
    if (owner == nullptr || owner->handle != handle) owner = Find(handle);
    if (owner == nullptr || !HasParts(owner->type)) notes_.Count(Note::kNoOwner);
  }
}

std::span<const std::pair<Handle, const IndexedRecord*>> RecordIndex::PartsOf(Handle owner) const {
  const auto isBefore = [](const auto& part, Handle wanted) { return part.first < wanted; };
  const auto begin = std::lower_bound(parts_.begin(), parts_.end(), owner, isBefore);
  const auto end = std::lower_bound(begin, parts_.end(), owner + 1, isBefore);
  return {begin, end};
}

void RecordIndex::TellDamage(const IndexedRecord& record, const Damage& damage) {
  notes_.Count(Note::kDamaged);
  if (hasToldDamage_) return;
  hasToldDamage_ = true;
  notes_.Add(FailureAt(record.address, Xlate(damage.reason)).reason);
}

}  // namespace dwg
