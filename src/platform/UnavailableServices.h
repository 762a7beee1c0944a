#pragma once

#include "Geocoder.h"
#include "HttpClient.h"
#include "LocationService.h"
#include "SystemProbe.h"

namespace ravlin {

// Stand-ins for a platform that lacks a service: every reading fails, location
// access is restricted, nothing is found or fetched. A backend replaces them.

class UnavailableSystemProbe final : public SystemProbe {
public:
    std::optional<CpuTicks> cpuTicks() override { return std::nullopt; }
    std::optional<MemoryUsage> memory() override { return std::nullopt; }
    std::optional<QList<PowerSource>> powerSources() override { return std::nullopt; }
    std::optional<VolumeCapacity> rootVolume() override { return std::nullopt; }
    std::optional<QList<InterfaceBytes>> interfaces() override { return std::nullopt; }
    double absoluteTime() override { return 0; }
};

class UnavailableLocationService final : public LocationService {
public:
    void setDelegate(LocationServiceDelegate*) override {}
    void setDesiredAccuracy(double) override {}
    LocationAuthorization authorizationStatus() const override
    {
        return LocationAuthorization::Restricted;
    }
    void requestWhenInUseAuthorization() override {}
    void requestLocation() override {}
};

class UnavailableGeocoder final : public Geocoder {
public:
    void reverseGeocode(const Coordinate&, Completion completion) override
    {
        completion(std::nullopt);
    }
};

class UnavailableHttpClient final : public HttpClient {
public:
    void get(const QUrl&, Completion completion) override { completion(std::nullopt); }
};

} // namespace ravlin
