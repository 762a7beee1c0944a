#pragma once

#include "foundation/Scheduler.h"
#include "platform/SystemProbe.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace ravlin {

// Samples processor load, memory, battery, disk and network throughput for the
// statistics tiles while sampling runs. Every change of a figure is announced
// by willChange() before and changed() after.
class SystemStats : public QObject {
    Q_OBJECT
public:
    static constexpr double defaultInterval = 2.0;
    // The processor needs two samples; the second comes this soon after a start.
    static constexpr double followUpDelay = 0.5;

    SystemStats(Scheduler& scheduler, SystemProbe& probe, QObject* parent = nullptr);
    ~SystemStats() override;

    // Samples now, again shortly after, then every interval seconds until stop().
    void start(double interval = defaultInterval);
    // Stops the timer; the previous samples are kept for the next start.
    void stop();
    // One sampling pass: processor, memory, battery, disk, network.
    void refresh();
    bool isSampling() const { return m_timer.isValid(); }

    double cpu() const { return m_cpu; }
    double ram() const { return m_ram; }
    std::optional<double> battery() const { return m_battery; }
    double disk() const { return m_disk; }
    double diskUsedGB() const { return m_diskUsedGB; }
    double diskTotalGB() const { return m_diskTotalGB; }
    double netDown() const { return m_netDown; } // MB/s (10^6 bytes)
    double netUp() const { return m_netUp; }

Q_SIGNALS:
    void willChange();
    void changed();

private:
    struct NetTotals {
        std::uint64_t rx = 0;
        std::uint64_t tx = 0;
    };

    std::optional<double> readCPU();
    double readRAM();
    std::optional<double> readBattery();
    void readDisk();
    void readNetwork();
    NetTotals readNetTotals();
    template <class Write> void publish(Write&& write);

    Scheduler& m_scheduler;
    SystemProbe& m_probe;

    double m_cpu = 0;
    double m_ram = 0;
    std::optional<double> m_battery;
    double m_disk = 0;
    double m_diskUsedGB = 0;
    double m_diskTotalGB = 0;
    double m_netDown = 0;
    double m_netUp = 0;

    Timer m_timer;
    std::optional<CpuTicks> m_prevCPU;
    std::optional<NetTotals> m_prevNet;
    double m_prevNetTime = 0;
};

} // namespace ravlin
