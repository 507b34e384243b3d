// The out-of-court table of D.M. 8 aprile 2004 n. 127 (Capitolo III), in
// euro. Items 2, 3, 6 and 9 are priced by value bracket as the decree prints
// them. The decree's text after item 2.e) is not held, nor the end of 2.e)
// itself: what is not printed here is not priced.
#include <array>

#include "Amounts.h"
#include "OutOfCourtEditions.h"

namespace avlor {

namespace {

using amounts::anyValue;
using amounts::euro;
using amounts::euroCents;
using amounts::noLimit;

// The value brackets of items 2, 3, 6 and 9, both bounds inclusive with a
// step of one cent between brackets.
constexpr std::array<ValueBracketBounds, ValueBracketCount + 1> ValueBrackets{{
    {anyValue, euro(600)}, // "fino a 600"
    {euroCents(60'001), euro(1'600)}, // "da 600,01 a 1.600"
    {euroCents(160'001), euro(5'200)}, // "da 1.600,01 a 5.200"
    {euroCents(520'001), euro(25'900)}, // "da 5.200,01 a 25.900"
    {euroCents(2'590'001), euro(51'700)}, // "da 25.900,01 a 51.700"
    {euroCents(5'170'001), euro(103'300)}, // "da 51.700,01 a 103.300"
    {euroCents(10'330'001), euro(258'300)}, // "da 103.300,01 a 258.300"
    {euroCents(25'830'001), euro(516'500)}, // "da 258.300,01 a 516.500"
    {euroCents(51'650'001), euro(1'549'400)}, // "da 516.500,01 a 1.549.400"
    {euroCents(154'940'001), euro(2'582'300)}, // "da 1.549.400,01 a 2.582.300"
    {euroCents(258'230'001), euro(5'164'600)}, // "da 2.582.300,01 a 5.164.600"
    {euroCents(516'460'001), noLimit}, // "oltre 5.164.600": coefficient per euro of the value
}};

// Above 5,164,600 euro the decree prints a coefficient per euro: the band is
// the coefficient times the whole value. Each coefficient is the top closed
// bracket's figure divided by 5,164,600 to three significant figures (530 /
// 5,164,600 = 0.0001026 -> 0.000103), so the band carries on from the last
// bracket, within that rounding, instead of starting again from 0.
constexpr std::array<ValueBracketItem, 4> ValueBracketItems{{
    {2,
     {{
         {euro(20), euro(75)}, // 2004 table, item 1.B a): up to 600 euro: 20-75
         {euro(50), euro(120)}, // 2004 table, item 1.B a): 600.01 to 1,600 euro: 50-120
         {euro(65), euro(165)}, // 2004 table, item 1.B a): 1,600.01 to 5,200 euro: 65-165
         {euro(90), euro(295)}, // 2004 table, item 1.B a): 5,200.01 to 25,900 euro: 90-295
         {euro(150), euro(420)}, // 2004 table, item 1.B a): 25,900.01 to 51,700 euro: 150-420
         {euro(190), euro(525)}, // 2004 table, item 1.B a): 51,700.01 to 103,300 euro: 190-525
         {euro(265), euro(635)}, // 2004 table, item 1.B a): 103,300.01 to 258,300 euro: 265-635
         {euro(320), euro(845)}, // 2004 table, item 1.B a): 258,300.01 to 516,500 euro: 320-845
         {euro(425), euro(950)}, // 2004 table, item 1.B a): 516,500.01 to 1,549,400 euro: 425-950
         {euro(480), euro(1'055)}, // 2004 table, item 1.B a): 1,549,400.01 to 2,582,300 euro: 480-1,055
         {euro(530), euro(1'160)}, // 2004 table, item 1.B a): 2,582,300.01 to 5,164,600 euro: 530-1,160
     }},
     PerEuroCoefficients{103, 225}, // 2004 table, item 1.B a): above 5,164,600 euro: 0.000103-0.000225
     FeeBand{euro(150), euro(525)}}, // 2004 table, item 1.B a): indeterminate value: 150-525
    {3,
     {{
         {euro(20), euro(135)}, // 2004 table, item 1.B b): up to 600 euro: 20-135
         {euro(50), euro(240)}, // 2004 table, item 1.B b): 600.01 to 1,600 euro: 50-240
         {euro(125), euro(360)}, // 2004 table, item 1.B b): 1,600.01 to 5,200 euro: 125-360
         {euro(185), euro(755)}, // 2004 table, item 1.B b): 5,200.01 to 25,900 euro: 185-755
         {euro(385), euro(1'220)}, // 2004 table, item 1.B b): 25,900.01 to 51,700 euro: 385-1,220
         {euro(480), euro(1'525)}, // 2004 table, item 1.B b): 51,700.01 to 103,300 euro: 480-1,525
         {euro(765), euro(1'830)}, // 2004 table, item 1.B b): 103,300.01 to 258,300 euro: 765-1,830
         {euro(920), euro(2'440)}, // 2004 table, item 1.B b): 258,300.01 to 516,500 euro: 920-2,440
         {euro(1'225), euro(2'745)}, // 2004 table, item 1.B b): 516,500.01 to 1,549,400 euro: 1,225-2,745
         {euro(1'375), euro(3'050)}, // 2004 table, item 1.B b): 1,549,400.01 to 2,582,300 euro: 1,375-3,050
         {euro(1'530), euro(3'355)}, // 2004 table, item 1.B b): 2,582,300.01 to 5,164,600 euro: 1,530-3,355
     }},
     PerEuroCoefficients{296, 650}, // 2004 table, item 1.B b): above 5,164,600 euro: 0.000296-0.000650
     FeeBand{euro(385), euro(1'525)}}, // 2004 table, item 1.B b): indeterminate value: 385-1,525
    {6,
     {{
         {euro(25), euro(130)}, // 2004 table, item 2.c): up to 600 euro: 25-130
         {euro(70), euro(220)}, // 2004 table, item 2.c): 600.01 to 1,600 euro: 70-220
         {euro(140), euro(330)}, // 2004 table, item 2.c): 1,600.01 to 5,200 euro: 140-330
         {euro(180), euro(690)}, // 2004 table, item 2.c): 5,200.01 to 25,900 euro: 180-690
         {euro(530), euro(1'125)}, // 2004 table, item 2.c): 25,900.01 to 51,700 euro: 530-1,125
         {euro(665), euro(1'405)}, // 2004 table, item 2.c): 51,700.01 to 103,300 euro: 665-1,405
         {euro(705), euro(1'685)}, // 2004 table, item 2.c): 103,300.01 to 258,300 euro: 705-1,685
         {euro(845), euro(2'250)}, // 2004 table, item 2.c): 258,300.01 to 516,500 euro: 845-2,250
         {euro(1'130), euro(2'530)}, // 2004 table, item 2.c): 516,500.01 to 1,549,400 euro: 1,130-2,530
         {euro(1'270), euro(2'810)}, // 2004 table, item 2.c): 1,549,400.01 to 2,582,300 euro: 1,270-2,810
         {euro(1'410), euro(3'090)}, // 2004 table, item 2.c): 2,582,300.01 to 5,164,600 euro: 1,410-3,090
     }},
     PerEuroCoefficients{273, 598}, // 2004 table, item 2.c): above 5,164,600 euro: 0.000273-0.000598
     FeeBand{euro(530), euro(1'405)}}, // 2004 table, item 2.c): indeterminate value: 530-1,405
    {9,
     {{
         {euro(10), euro(50)}, // 2004 table, item 2.e): up to 600 euro: 10-50
         {euro(25), euro(90)}, // 2004 table, item 2.e): 600.01 to 1,600 euro: 25-90
         {euro(50), euro(135)}, // 2004 table, item 2.e): 1,600.01 to 5,200 euro: 50-135
         {euro(70), euro(300)}, // 2004 table, item 2.e): 5,200.01 to 25,900 euro: 70-300
         {euro(155), euro(455)}, // 2004 table, item 2.e): 25,900.01 to 51,700 euro: 155-455
         {euro(195), euro(565)}, // 2004 table, item 2.e): 51,700.01 to 103,300 euro: 195-565
         {euro(285), euro(680)}, // 2004 table, item 2.e): 103,300.01 to 258,300 euro: 285-680
         {euro(345), euro(910)}, // 2004 table, item 2.e): 258,300.01 to 516,500 euro: 345-910
         {euro(460), euro(1'020)}, // 2004 table, item 2.e): 516,500.01 to 1,549,400 euro: 460-1,020
         {euro(515), euro(1'135)}, // 2004 table, item 2.e): 1,549,400.01 to 2,582,300 euro: 515-1,135
         {euro(570), euro(1'250)}, // 2004 table, item 2.e): 2,582,300.01 to 5,164,600 euro: 570-1,250
     }},
     // 2004 table, item 2.e): above 5,164,600 euro the held text stops after
     // the minimum coefficient 0.000110, and the indeterminate-value band is
     // missing: neither is priced.
     std::nullopt,
     std::nullopt},
}};

// Items 10, 11 and 12, the fees charged as a percentage of the value.
constexpr std::array<PercentageBracket, 8> PercentageBrackets{{
    // 2004 table, items 10-12: up to 5,200 euro: 3 % - 6 %
    {euro(0), euro(5'200), euro(0), {300}, euro(0), {600}},
    // 2004 table, items 10-12: 5,200 to 25,900 euro: 156 + 1.75 % - 312 + 5.25 %
    {euro(5'200), euro(25'900), euro(156), {175}, euro(312), {525}},
    // 2004 table, items 10-12: 25,900 to 51,700 euro: 518.25 + 1.5 % - 1,398.75 + 4.5 %
    {euro(25'900), euro(51'700), euroCents(51'825), {150}, euroCents(139'875), {450}},
    // 2004 table, items 10-12: 51,700 to 258,300 euro: 905.25 + 1.25 % - 2,559.75 + 3.75 %
    {euro(51'700), euro(258'300), euroCents(90'525), {125}, euroCents(255'975), {375}},
    // 2004 table, items 10-12: 258,300 to 516,500 euro: 3,487.75 + 1 % - 10,307.25 + 3 %
    {euro(258'300), euro(516'500), euroCents(348'775), {100}, euroCents(1'030'725), {300}},
    // 2004 table, items 10-12: 516,500 to 1,549,400 euro: 6,069.75 + 0.75 % - 18,053.25 + 3 %
    {euro(516'500), euro(1'549'400), euroCents(606'975), {75}, euroCents(1'805'325), {300}},
    // 2004 table, items 10-12: 1,549,400 to 2,582,300 euro: 13,816.50 + 0.5 % - 49,040.25 + 2 %
    {euro(1'549'400), euro(2'582'300), euroCents(1'381'650), {50}, euroCents(4'904'025), {200}},
    // 2004 table, items 10-12: above 2,582,300 euro: 18,981 + 0.25 % - 69,698.25 + 1 %
    {euro(2'582'300), noLimit, euro(18'981), {25}, euroCents(6'969'825), {100}},
}};

constexpr std::array<FixedBandItem, 5> FixedBands{{
    {1, {euro(15), euro(150)}}, // 2004 table, item 1.A): 15-150
    {5, {euro(10), euro(15)}}, // 2004 table, item 2.b): 10-15 for each letter or call
    {7, {euro(35), euro(60)}}, // 2004 table, item 2.d), in the office: 35-60 an hour
    {8, {euro(65), euro(125)}}, // 2004 table, item 2.d), collegial or outside the office: 65-125 an hour
    {13, {euro(40), euro(770)}}, // 2004 table, item Id 13: 40-770
}};

constexpr OutOfCourtEditionTable Table{
    false,
    PercentageBrackets,
    FixedBands,
    4,
    euro(13), // 2004 table, item 2.a): filing, fixed 13
    ValueBracketItems,
};

} // namespace

const OutOfCourtEditionTable& outOfCourtEuro2004() { return Table; }

std::span<const ValueBracketBounds, ValueBracketCount + 1> valueBracketBounds() { return ValueBrackets; }

} // namespace avlor
