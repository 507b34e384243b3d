// A host program: prices out-of-court item 1 of the 2004 tariff at importance
// 50 through the installed component, directly and late-bound.
#include <iostream>
#include <vector>

#include <avlor/Avlor.h>

int main()
{
    avlor::Currency value = avlor::Currency::fromWhole(1000);
    std::int16_t importance = 50;
    std::string table = "OnorariStrag2004Euro";
    std::int16_t indeterminate = 0;
    std::int32_t item = 1;
    avlor::Currency minTar, maxTar, minS, maxS;
    std::string authority;
    const avlor::Currency direct = avlor::ClsParcella().CalcolaTariffa(value, importance, table, indeterminate, item,
                                                                       minTar, maxTar, minS, maxS, authority);

    auto object = avlor::CreateObject("AvlorLogic.ClsParcella");
    std::vector<avlor::Value> args{avlor::Value(value),
                                   avlor::Value(std::int16_t{50}),
                                   avlor::Value(table),
                                   avlor::Value(false),
                                   avlor::Value(std::int32_t{1}),
                                   avlor::Value(0),
                                   avlor::Value(0),
                                   avlor::Value(0),
                                   avlor::Value(0),
                                   avlor::Value("")};
    const auto lateBound = std::get<avlor::Value>(object->invoke("CalcolaTariffa", args));

    std::cout << direct.toFixed4() << ' ' << minTar.toFixed4() << ' ' << maxTar.toFixed4() << ' '
              << lateBound.asCurrency().toFixed4() << '\n';
    return direct.toFixed4() == "82.5000" && lateBound.asCurrency() == direct ? 0 : 1;
}
