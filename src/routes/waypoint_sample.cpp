#include <array>

#include "routes/waypoint.h"

namespace skerrow {
namespace {

// Marks of the Channel and its French coast. Sample data, not for navigation.
const std::array<Waypoint, 46>& Table() {
  static const std::array<Waypoint, 46> table = {{
      {"Anvil Point", 50.58233F, -1.93083F},
      {"Bassurelle Buoy", 50.54567F, 0.9615F},
      {"Berry Head", 50.399F, -3.47F},
      {"Bridge Buoy(Needles)", 50.6605F, -1.61467F},
      {"Brighton", 50.8055F, -0.107F},
      {"Cap Frehel", 48.696F, -2.315F},
      {"Ch 1 Buoy", 49.72067F, -1.70167F},
      {"Ch de Sein Buoy", 48.06233F, -5.12917F},
      {"Channel LT F", 49.9075F, -2.89567F},
      {"Dartmouth Approaches", 50.325F, -3.55F},
      {"Dieppe D1 Buoy", 49.95067F, 1.02067F},
      {"Dungeness", 50.9F, 0.99F},
      {"E Chan HFP", 49.97767F, -2.48317F},
      {"EC1 HFP Buoy", 50.09833F, -1.8055F},
      {"EC2 HFP Buoy", 50.20167F, -1.20667F},
      {"EC3 HFP Buoy", 50.305F, -0.60167F},
      {"Exmouth Appr", 50.6F, -3.37283F},
      {"Granvill Buoy", 48.82767F, -1.701F},
      {"Greenwich Lanby", 50.409F, 0.00167F},
      {"Ile de Batz", 48.77F, -4.03F},
      {"L Aberwratch Buoy", 48.62433F, -4.64067F},
      {"Le Four", 48.523F, -4.82333F},
      {"Le Harve Lanby", 49.523F, -0.16467F},
      {"Le Trieux", 48.9F, -2.93F},
      {"Les Vieux Moines", 48.32F, -4.785F},
      {"Lizard", 49.94F, -5.206F},
      {"Manacles Buoy", 50.04683F, -5.03183F},
      {"N Alderney", 49.76F, -2.205F},
      {"NE Guernsey", 49.52F, -2.475F},
      {"Ouistreham Buoy", 49.34033F, -0.24683F},
      {"Owers Lanby", 50.64317F, -0.68483F},
      {"Perros Guirec (E)", 48.86167F, -3.35F},
      {"Plymouth Appr", 50.31667F, -4.15F},
      {"Portland Bill", 50.485F, -2.456F},
      {"Royal Sovereign", 50.723F, 0.4355F},
      {"Runnel Stone", 50.01633F, -5.67267F},
      {"Salcombe", 50.202F, -3.772F},
      {"SE Guernsey", 49.415F, -2.505F},
      {"Shoreham", 50.815F, -0.247F},
      {"St Catherines", 50.56F, -1.298F},
      {"St Malo Freeway", 48.69017F, -2.121F},
      {"St Vaast Entrance", 49.58333F, -1.248F},
      {"Start Point", 50.208F, -3.63F},
      {"SW Jersey", 49.17F, -2.27F},
      {"Treguier", 48.90483F, -3.186F},
      {"Ushant NE Buoy", 48.765F, -5.19333F},
  }};
  return table;
}

}  // namespace

std::span<const Waypoint> SampleWaypoints() { return Table(); }

}  // namespace skerrow
