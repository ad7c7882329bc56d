// Writes the tide fixture: full harmonic predictions of the constants in
// stations.json for the ports and spans below.
//
// Run from a folder whose node_modules hold the packages of package.json:
//   node fixture.mjs STATIONS.JSON FIXTURE.JSON
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const predictor = path.resolve(
  "node_modules/@neaps/tide-predictor/dist/index.js");
const { createTidePredictor } = await import(pathToFileURL(predictor).href);

// A fortnight about an equinox, with great springs, and one in early winter.
const kSpans = [
  { start: "2026-03-14", days: 15 },
  { start: "2026-12-01", days: 15 },
];
const kPorts = [
  "Dover", "Portsmouth", "Southampton", "Weymouth", "Devonport", "Newlyn",
  "Milford Haven", "Avonmouth", "Holyhead", "Liverpool", "Dublin", "Galway",
  "Aberdeen", "Immingham", "Harwich", "Vlissingen", "Calais", "Dieppe",
  "Le Havre", "Cherbourg", "St Helier", "Saint Malo", "Roscoff", "Brest",
];
const kHour = 3600000;

const [stationsFile, fixtureFile] = process.argv.slice(2);
const { stations } = JSON.parse(fs.readFileSync(stationsFile, "utf8"));

const ports = kPorts.map((name) => {
  const station = stations.find((item) => item.name === name);
  // The predictor takes 3N2 for another constituent.
  const predictor = createTidePredictor(station.constituents
    .filter(([constituent]) => constituent !== "3N2")
    .map(([constituent, amplitude, phase]) =>
      ({ name: constituent, amplitude, phase })));
  const heights = [];
  const highWaters = [];
  for (const { start, days } of kSpans) {
    const from = new Date(`${start}T00:00:00Z`);
    const span = { start: from, end: new Date(+from + days * 24 * kHour) };
    heights.push(predictor
      .getTimelinePrediction({ ...span, timeFidelity: 3600 })
      .slice(0, days * 24)
      .map(({ level }) => Math.round(level * 1000)));
    highWaters.push(predictor.getExtremesPrediction(span)
      .filter(({ high }) => high)
      .map(({ time, level }) =>
        [Math.round((time - from) / 60000), Math.round(level * 1000)]));
  }
  return { name, heights, highWaters };
});

const header = {
  source: "constants of TICON-4 (Hart-Davis, Dettmering, Seitz 2025, " +
    "doi 10.17882/109129, CC BY 4.0) in tools/sample-data/stations.json, " +
    "predicted with @neaps/tide-predictor 0.11.0 from every constituent",
  heights: "hourly from 00:00 universal time of the span's start, " +
    "millimetres above the yearly mean level (the port record's Z0), " +
    "the seasonal change included; one list a span",
  highWaters: "[minutes after the span's start, millimetres above the same " +
    "level] of every maximum of the continuous curve, a list a span",
};
const lines = Object.entries(header)
  .map(([key, value]) => ` ${JSON.stringify(key)}: ${JSON.stringify(value)},`);
fs.writeFileSync(fixtureFile, [
  "{", ...lines, ` "spans": ${JSON.stringify(kSpans)},`, ' "ports": [',
  ports.map((port) => `  ${JSON.stringify(port)}`).join(",\n"),
  " ]", "}", "",
].join("\n"));
console.log(`${ports.length} ports`);
