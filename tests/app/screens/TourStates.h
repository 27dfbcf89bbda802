#pragma once

#include <functional>
#include <string>

class CareerDriver;

// States of a screen that the tour shows in addition to those on its way. `visit` gets the
// picture's name. False if the program did something else.

/// On the enlistment: sent by the service, with a long name and with an ace's.
bool tourEnlistment(CareerDriver& driver, const std::function<void(const std::string&)>& visit);
/// On the orders: twelve companions, more than any plan has.
bool crowdRoster(CareerDriver& driver, const std::function<void(const std::string&)>& visit);
/// The pages of the simulator in all their states. It ends without a simulator.
bool tourSimulator(CareerDriver& driver, const std::function<void(const std::string&)>& visit);
/// In the report: twenty more pilots, with all that can be said about them. Always true.
bool fillReport();
