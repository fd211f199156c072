#include "plugin/vertex_normals_control.h"

VertexNormalsControl::VertexNormalsControl() : enabled_(true), target_(nullptr) {}
