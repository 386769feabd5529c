#include "core/catalogue.h"

#include <array>
#include <cstring>

#include "grainsmith/textures/brick.h"
#include "grainsmith/textures/camouflage.h"
#include "grainsmith/textures/cell.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/cheetah.h"
#include "grainsmith/textures/constant.h"
#include "grainsmith/textures/corrugated.h"
#include "grainsmith/textures/dented.h"
#include "grainsmith/textures/eroded.h"
#include "grainsmith/textures/fbm.h"
#include "grainsmith/textures/gradient.h"
#include "grainsmith/textures/granite.h"
#include "grainsmith/textures/grid.h"
#include "grainsmith/textures/hex_tile.h"
#include "grainsmith/textures/houndstooth.h"
#include "grainsmith/textures/nested_shapes.h"
#include "grainsmith/textures/penrose_rhombus.h"
#include "grainsmith/textures/perlin_noise.h"
#include "grainsmith/textures/plaid.h"
#include "grainsmith/textures/psychedelic.h"
#include "grainsmith/textures/scales.h"
#include "grainsmith/textures/simple_marble.h"
#include "grainsmith/textures/simplex.h"
#include "grainsmith/textures/snakeskin.h"
#include "grainsmith/textures/speckled_stone.h"
#include "grainsmith/textures/spheres.h"
#include "grainsmith/textures/spiral.h"
#include "grainsmith/textures/stripes.h"
#include "grainsmith/textures/turbulence.h"
#include "grainsmith/textures/voronoi.h"
#include "grainsmith/textures/voronoi_tile.h"
#include "grainsmith/textures/weave.h"
#include "grainsmith/textures/wood.h"
#include "grainsmith/textures/zigzag.h"

namespace grainsmith {
namespace {

// Destroys through the concrete type, so no virtual destructor is needed.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdelete-non-virtual-dtor"
template <class T>
void destroyAs(Texture3D* t) {
    delete static_cast<T*>(t);
}
#pragma GCC diagnostic pop

template <class T>
constexpr KindOps kOps{
    [] { return static_cast<Texture3D*>(new T); },
    &destroyAs<T>,
    &T::parameters,
};

// A row for an implemented kind: identity and record size come from the class itself.
template <class T>
constexpr Kind row(const char* className, int create, int editor, bool readsFlags) {
    return {T::kName, className, T::kRecordSize, T::kMajor, T::kMinor, create, editor, readsFlags, &kOps<T>};
}

// A row for a kind whose class is not built yet.
constexpr Kind planned(const char* name, const char* className, int size, int major, int create, int editor,
                       bool readsFlags) {
    return {name, className, size, major, 0, create, editor, readsFlags, nullptr};
}

constexpr bool yes = true, no = false;

// The class name is written once: the row takes it from the class itself.
#define IMPLEMENTED(Class, create, editor, readsFlags) row<Class>(#Class, create, editor, readsFlags)

// Creation order first; Brick is marked as reading flags because its algorithm does.
constexpr std::array kKinds{
    IMPLEMENTED(CheckerboardTexture3D, 1, 2, no),
    IMPLEMENTED(WoodTexture3D, 2, 3, no),
    IMPLEMENTED(PerlinTexture3D, 3, 1, yes),
    IMPLEMENTED(SimpleMarbleTexture3D, 4, 4, yes),
    IMPLEMENTED(StripesTexture3D, 5, 5, no),
    IMPLEMENTED(SpheresTexture3D, 6, 6, yes),
    IMPLEMENTED(GraniteTexture3D, 7, 7, yes),
    IMPLEMENTED(GradientTexture3D, 8, 8, no),
    IMPLEMENTED(ConstantTexture3D, 9, 0, no),
    IMPLEMENTED(SimplexTexture3D, 10, 9, yes),
    IMPLEMENTED(VoronoiTexture3D, 11, 10, yes),
    IMPLEMENTED(BrickTexture3D, 12, 11, yes),
    IMPLEMENTED(GridTexture3D, 13, 12, yes),
    IMPLEMENTED(TurbulenceTexture3D, 14, 13, yes),
    IMPLEMENTED(FBMTexture3D, 15, 14, yes),
    IMPLEMENTED(ErodedTexture3D, 16, 15, yes),
    IMPLEMENTED(NestedShapesTexture3D, 17, 16, no),
    IMPLEMENTED(DentedTexture3D, 18, 17, yes),
    IMPLEMENTED(SpeckledStoneTexture3D, 19, 18, yes),
    IMPLEMENTED(HexTileTexture3D, 20, 19, no),
    IMPLEMENTED(SpiralTexture3D, 21, 20, yes),
    IMPLEMENTED(CheetahTexture3D, 22, 21, yes),
    IMPLEMENTED(VoronoiTileTexture3D, 23, 22, yes),
    IMPLEMENTED(WeaveTexture3D, 24, 23, no),
    IMPLEMENTED(PlaidTexture3D, 25, 24, no),
    IMPLEMENTED(PsychedelicTexture3D, 26, 25, yes),
    IMPLEMENTED(CamouflageTexture3D, 27, 26, yes),
    IMPLEMENTED(ZigzagTexture3D, 28, 27, no),
    IMPLEMENTED(CorrugatedTexture3D, 29, 28, no),
    IMPLEMENTED(SnakeskinTexture3D, 30, 29, no),
    IMPLEMENTED(ScalesTexture3D, 31, 30, no),
    IMPLEMENTED(HoundstoothTexture3D, 32, 31, no),
    IMPLEMENTED(CellTexture3D, 0, 0, no),
    IMPLEMENTED(PenroseRhombusTexture3D, 0, 0, no),
};

#undef IMPLEMENTED

constexpr bool inCreationOrder() {
    int next = 1;
    for (const Kind& k : kKinds) {
        if (k.createOrder == 0) continue;
        if (k.createOrder != next++) return false;
    }
    return true;
}
static_assert(kKinds.size() == 34);
static_assert(inCreationOrder(), "rows must be listed in creation order");

}  // namespace

std::span<const Kind> catalogue() { return kKinds; }

const Kind* findKind(std::string_view name) {
    for (const Kind& k : kKinds)
        if (name == k.name) return &k;
    return nullptr;
}

std::string_view recordName(const char* record) {
    constexpr size_t kField = sizeof(BaseData::name);
    const char* name = record + offsetof(BaseData, name);
    const void* zero = std::memchr(name, '\0', kField);
    return {name, zero ? static_cast<size_t>(static_cast<const char*>(zero) - name) : kField};
}

void writeDefaultRecord(const Kind& kind, unsigned char* out) {
    Texture3D* fresh = kind.ops->create();
    fresh->getDescription(reinterpret_cast<char*>(out));
    kind.ops->destroy(fresh);
}

CreatedTexture createByName(std::string_view name) {
    for (const Kind& k : kKinds) {
        if (k.createOrder == 0 || name != k.name) continue;
        if (!k.implemented()) return {};
        return {k.ops->create(), &k};
    }
    return {};
}

}  // namespace grainsmith
