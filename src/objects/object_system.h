// Puts the object system into the core's hooks. A face does it before the engine runs anything.
#pragma once

namespace velm {

void InstallObjectSystem();

}  // namespace velm
