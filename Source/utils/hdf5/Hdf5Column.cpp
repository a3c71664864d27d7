#include "utils/hdf5/Hdf5Column.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "utils/hdf5/Hdf5Handle.h"

static const unsigned int DEFLATE_LEVEL = 1;

size_t Hdf5Shape::elements() const {
    unsigned long long product = 1;
    for (int i = 0; i < rank_; ++i) product *= dims_[i];
    return static_cast<size_t>(product);
}

// A record without dimensions makes a row of records.
static Hdf5Shape ShapeOfColumn(const Hdf5Shape& recordShape) {
    Hdf5Shape shape = recordShape;
    if (shape.rank_ == 0) shape.dims_[shape.rank_++] = 1;
    shape.dims_[shape.rank_++] = 0;
    return shape;
}

static unsigned long long ChunkRecords(size_t recordBytes) {
    const unsigned long long fitting = Hdf5Column::CHUNK_ROOM / std::max<size_t>(1, recordBytes);
    return std::max(1ULL, std::min(fitting, +Hdf5Column::CHUNK_RECORDS));
}

size_t Hdf5Column::ChunkBytes(size_t recordBytes) {
    return static_cast<size_t>(ChunkRecords(recordBytes)) * recordBytes;
}

Hdf5Column::Hdf5Column(Hdf5File& file, Hdf5Id group, const char* name, Hdf5Id fileType, const Hdf5Shape& recordShape,
                       size_t elementSize)
    : Hdf5Item(file, -1),
      elements_(recordShape.elements()),
      elementSize_(elementSize),
      shape_(ShapeOfColumn(recordShape)),
      chunkRecords_(ChunkRecords(elements_ * elementSize)),
      room_(static_cast<size_t>(chunkRecords_)) {
    create(group, name, fileType);
}

// Bytes of like weight side by side compress faster and further.
void Hdf5Column::create(Hdf5Id group, const char* name, Hdf5Id fileType) {
    const MemoryReserve::Loan memory;
    const int last = shape_.rank_ - 1;
    hsize_t limits[Hdf5Shape::MAX_RANK];
    hsize_t chunk[Hdf5Shape::MAX_RANK];
    std::copy_n(shape_.dims_, last, limits);
    std::copy_n(shape_.dims_, last, chunk);
    limits[last] = H5S_UNLIMITED;
    chunk[last] = chunkRecords_;
    const Hdf5Handle space(file_.call([&] { return H5Screate_simple(shape_.rank_, shape_.dims_, limits); }), &H5Sclose);
    const Hdf5Handle creation(file_.call([] { return H5Pcreate(H5P_DATASET_CREATE); }), &H5Pclose);
    file_.call([&] { return H5Pset_chunk(creation, shape_.rank_, chunk); });
    file_.call([&] { return H5Pset_shuffle(creation); });
    file_.call([&] { return H5Pset_deflate(creation, DEFLATE_LEVEL); });
    file_.call([&] { return H5Pset_obj_track_times(creation, false); });
    open(file_.call([&] { return H5Dcreate2(group, name, fileType, space, H5P_DEFAULT, creation, H5P_DEFAULT); }));
}

size_t Hdf5Column::newRoom() const {
    const bool beginsChunk = (written_ + count_) % chunkRecords_ == 0;
    return beginsChunk ? ChunkBytes(elements_ * elementSize_) : 0;
}

void* Hdf5Column::addBytes(size_t bytes) {
    file_.countGathered(bytes);
    if (count_ == room_) flush();
    void* const room = block_.extend(bytes);
    if (room == nullptr) {
        errno = ENOMEM;
        file_.fail();
    } else {
        ++count_;
    }
    return room;
}

void Hdf5Column::flush() {
    const size_t records = count_;
    if (records == 0) return;
    const MemoryReserve::Loan memory;
    count_ = 0;
    room_ = static_cast<size_t>(chunkRecords_ - (written_ + records) % chunkRecords_);
    const int last = shape_.rank_ - 1;
    hsize_t start[Hdf5Shape::MAX_RANK] = {};
    hsize_t counts[Hdf5Shape::MAX_RANK];
    std::copy_n(shape_.dims_, shape_.rank_, counts);
    start[last] = written_;
    counts[last] = records;
    written_ += records;
    shape_.dims_[last] = written_;
    file_.call([&] { return H5Dset_extent(id(), shape_.dims_); });
    const Hdf5Handle fileSpace(file_.call([&] { return H5Dget_space(id()); }), &H5Sclose);
    file_.call([&] { return H5Sselect_hyperslab(fileSpace, H5S_SELECT_SET, start, nullptr, counts, nullptr); });
    const Hdf5Handle memorySpace(file_.call([&] { return H5Screate_simple(shape_.rank_, counts, nullptr); }),
                                 &H5Sclose);
    put(records, memorySpace, fileSpace);
    file_.countWritten(block_.length());
    block_.clear();
}

// Numbers.

Hdf5NumberColumn::Hdf5NumberColumn(Hdf5File& file, Hdf5Id group, const char* name, const Hdf5Shape& recordShape)
    : Hdf5Column(file, group, name, H5T_IEEE_F64LE, recordShape, sizeof(double)) {}

void Hdf5NumberColumn::add(double number) {
    if (double* const record = addRecord()) *record = number;
}

// The records lie one after another, in the file side by side.
void Hdf5NumberColumn::put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) {
    const double* const block = reinterpret_cast<const double*>(block_.data());
    std::unique_ptr<double[]> turned;
    if (elements_ > 1) {
        turned.reset(new double[records * elements_]);
        for (size_t record = 0; record < records; ++record) {
            for (size_t i = 0; i < elements_; ++i) turned[i * records + record] = block[record * elements_ + i];
        }
    }
    const double* const numbers = elements_ > 1 ? turned.get() : block;
    file_.call([&] { return H5Dwrite(id(), H5T_NATIVE_DOUBLE, memorySpace, fileSpace, H5P_DEFAULT, numbers); });
}

// Texts.

static Hdf5Id NewTextType() {
    const Hdf5Id type = H5Tcopy(H5T_C_S1);
    H5Tset_size(type, H5T_VARIABLE);
    H5Tset_cset(type, H5T_CSET_UTF8);
    return type;
}

Hdf5TextColumn::Hdf5TextColumn(Hdf5File& file, Hdf5Id group, const char* name)
    : Hdf5Column(file, group, name, Hdf5Handle(NewTextType(), &H5Tclose), Hdf5Shape(), sizeof(const char*)) {}

void Hdf5TextColumn::add(const Str& text) {
    const size_t bytes = strlen(text.cStr()) + 1;
    if (void* const room = addBytes(bytes)) memcpy(room, text.cStr(), bytes);
}

void Hdf5TextColumn::put(size_t records, Hdf5Id memorySpace, Hdf5Id fileSpace) {
    const char* texts[CHUNK_RECORDS];
    const char* text = block_.data();
    for (size_t i = 0; i < records; ++i, text += strlen(text) + 1) texts[i] = text;
    const Hdf5Handle type(NewTextType(), &H5Tclose);
    file_.call([&] { return H5Dwrite(id(), type, memorySpace, fileSpace, H5P_DEFAULT, texts); });
}

// References.

Hdf5ReferenceColumn::Hdf5ReferenceColumn(Hdf5File& file, Hdf5Id group, const char* name)
    : Hdf5Column(file, group, name, H5T_STD_REF_OBJ, Hdf5Shape(), sizeof(hobj_ref_t)) {}

void Hdf5ReferenceColumn::add(uint64_t reference) {
    if (void* const room = addBytes(sizeof reference)) memcpy(room, &reference, sizeof reference);
}

void Hdf5ReferenceColumn::put(size_t, Hdf5Id memorySpace, Hdf5Id fileSpace) {
    file_.call([&] { return H5Dwrite(id(), H5T_STD_REF_OBJ, memorySpace, fileSpace, H5P_DEFAULT, block_.data()); });
}
