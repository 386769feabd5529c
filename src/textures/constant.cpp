#include "grainsmith/textures/constant.h"

namespace grainsmith {

ParamTable ConstantTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "constant", .type = FieldType::Float32, .offset = offsetof(ConstantData, constant),
         .defaultValue = 0.5, .group = "Constant", .label = "Value", .widget = Widget::Slider, .scale = 0.01,
         .description = "The value returned at every point."},
    };
    return table;
}

float ConstantTexture3D::evaluate(const float*) const { return data_.constant; }

}  // namespace grainsmith
