#include "Context.h"

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace varn;
    driver::Output output;
    driver::DriverHost host(output);
    setHost(&host);
    driver::Status status;
    {
        driver::Context context(output, host);
        status = context.run({argv + 1, argv + argc});
    }
    setHost(nullptr);
    output.flush();
    if (!output.isGood() && status == driver::Status::Done) {
        driver::complain(output, "standard output cannot be written");
        status = driver::Status::Failed;
    }
    return static_cast<int>(status);
}
