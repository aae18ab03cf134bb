// A checkout scale of the 8213/8217 type: it answers W with the weight and Z by zeroing itself.
#pragma once

#include <functional>
#include <string>

class VirtualScale {
public:
    enum class Unit { Kilogram, Pound };

    // report: what happened, in a few words for the list of events.
    VirtualScale(std::function<void(const std::string& bytes)> send,
                 std::function<void(const std::string& event)> report);

    // The host's commands; a byte that is none is ignored.
    void Receive(char byte);
    [[nodiscard]] static bool IsCommand(char byte) { return byte == 'W' || byte == 'Z'; }

    // text: a decimal number such as 1.235 or -0.5, with at most three decimals for kilograms and two for pounds. Ends
    // movement. Beyond the capacity of 30 of either unit, and below zero, the scale answers with its status only.
    // Errors: LaneError.
    void Weigh(const std::string& text, Unit unit);
    // In motion until the next weight.
    void BecomeUnstable();

    // The weight and its unit as shown to the user, "1.235 kg".
    [[nodiscard]] std::string Display() const;
    [[nodiscard]] bool Unstable() const { return unstable_; }

private:
    void SendWeight();
    void Zero();
    void SendStatus(unsigned bits);
    [[nodiscard]] int Decimals() const { return unit_ == Unit::Kilogram ? 3 : 2; }
    // One in the last digit that the unit shows.
    [[nodiscard]] long Scale() const { return unit_ == Unit::Kilogram ? 1000 : 100; }

    std::function<void(const std::string&)> send_;
    std::function<void(const std::string&)> report_;
    Unit unit_ = Unit::Kilogram;
    long weight_ = 0; // in the last digit that the unit shows
    bool unstable_ = false;
};
