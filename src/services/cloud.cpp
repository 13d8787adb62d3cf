#include "services/cloud.h"

ICloudManager::~ICloudManager() = default;

CCloudManager* CCloudManager::GetInstance() {
  static CCloudManager instance;
  return &instance;
}
