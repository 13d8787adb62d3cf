// Where a host keeps jobs apart from this machine; this host has no such place.
#pragma once

class ICloudManager {
 public:
  virtual ~ICloudManager();
};

class CCloudManager : public ICloudManager {
 public:
  static CCloudManager* GetInstance();
};
