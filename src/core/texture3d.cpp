#include "grainsmith/texture3d.h"

#include <cstring>

namespace grainsmith {

void Texture3D::operator()(const float*, int n, float* out) const {
    for (int i = 0; i < n; ++i) out[i] = 1.0f;
}

float Texture3D::operator()(const float*) const { return 1.0f; }

void Texture3D::getDescription(char* out) const { std::memcpy(out, "Empty", 6); }

void Texture3D::setStateFromDescription(const char*) {}

}  // namespace grainsmith
