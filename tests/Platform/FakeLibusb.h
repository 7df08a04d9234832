// The calls of libusb that the host makes, over one device that is written down. What the library
// handed out and did not get back is counted, and used after its end it stops the test.
#pragma once
#include <atomic>
#include <deque>
#include <libusb-1.0/libusb.h>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

// How a transfer ends: at the next look at events, or never.
struct FakeEnd {
    libusb_transfer_status status = LIBUSB_TRANSFER_COMPLETED;
    std::string bytes; // that came in
    std::optional<int> moved; // in place of the bytes asked for, or that came
    bool never = false;
};

class FakeLibusb {
public:
    FakeLibusb();
    ~FakeLibusb();
    FakeLibusb(const FakeLibusb&) = delete;
    FakeLibusb& operator=(const FakeLibusb&) = delete;
    static FakeLibusb& current();

    // What the library answers.
    int initResult = 0;
    int listResult = 1; // devices
    int recordResult = 0;
    int configurationResult = 0;
    int openResult = 0;
    int claimResult = 0;
    int eventsResult = 0;
    int submitResult = 0;
    bool cancels = true;
    std::deque<std::string> oldAnswers; // ready to be read when the interface is claimed
    bool repeatsOldAnswer = false; // the first of them, for ever
    unsigned haltedPipe = 0; // an endpoint's address, until its halt is cleared
    std::deque<FakeEnd> ends; // when used up: never
    std::optional<std::string> reply; // to a control request
    std::vector<std::optional<std::string>> texts; // by index; 0 is not asked for

    // Descriptors.
    libusb_device_descriptor record{};
    std::vector<libusb_endpoint_descriptor> endpoints;
    std::vector<libusb_interface_descriptor> settings;
    libusb_interface interface {
    };
    libusb_config_descriptor configuration{};
    void describe(); // makes them point at each other

    // What is out, and what was asked.
    int contexts = 0;
    int references = 0;
    int handles = 0;
    int configurations = 0;
    int transfers = 0;
    int inFlight() { return static_cast<int>(m_inFlight.size()); }
    int claims = 0;
    int attachedAgain = 0;
    bool autoDetach = false;
    std::vector<unsigned> haltsCleared;
    std::vector<unsigned> timeouts; // of control requests
    std::vector<std::string> written;

    // For the calls themselves.
    int submit(libusb_transfer* transfer);
    int cancel(libusb_transfer* transfer);
    int handleEvents(const timeval& limit, int* completed);
    void forget(const libusb_device_handle* handle);

private:
    struct Flight {
        libusb_transfer* transfer;
        FakeEnd end;
    };
    std::mutex m_mutex;
    std::vector<Flight> m_inFlight;
};
