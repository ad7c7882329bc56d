// Writes stations.json: the harmonic constants of the ports in ports.csv.
//
// Run from a folder whose node_modules hold the packages of package.json:
//   node stations.mjs PORTS.CSV STATIONS.JSON
import fs from "node:fs";
import path from "node:path";
import { pathToFileURL } from "node:url";

const database = path.resolve(
  "node_modules/@neaps/tide-database/dist/node/index.js");
const { allStations } = await import(pathToFileURL(database).href);

const [portsFile, stationsFile] = process.argv.slice(2);
const kTolerance = 0.03; // degrees, between a gauge and the place it is named for

function fail(text) {
  console.error(text);
  process.exit(1);
}

function round(value, digits) {
  return Number(value.toFixed(digits));
}

const byId = new Map(allStations.map((station) => [station.id, station]));
const rows = fs.readFileSync(portsFile, "utf8").trim().split("\n").slice(1);
const result = rows.map((row) => {
  const [id, name, latitude, longitude] = row.split(",");
  const station = byId.get(`ticon/${id}`);
  if (!station) fail(`${id}: not in the database`);
  if (station.source.name !== "TICON-4" || station.license.type !== "cc-by-4.0" ||
      !station.license.commercial_use) {
    fail(`${id}: licence is ${station.license.type}`);
  }
  const off = Math.max(
    Math.abs(station.latitude - latitude),
    Math.abs(station.longitude - longitude) * Math.cos(latitude * Math.PI / 180));
  if (off > kTolerance) {
    fail(`${id}: lies at ${station.latitude}, ${station.longitude}, not at ${name}`);
  }
  const constituents = station.harmonic_constituents
    .map((item) => [item.name, round(item.amplitude, 4), round(item.phase, 2)])
    .filter(([, amplitude]) => amplitude > 0);
  return {
    name,
    station: id,
    nameInSource: station.name,
    latitude: round(station.latitude, 4),
    longitude: round(station.longitude, 4),
    epoch: station.epoch,
    msl: round(station.datums.MSL, 3),
    lat: round(station.datums.LAT, 3),
    constituents,
  };
});

const header = {
  source: "TICON-4: TIdal CONstants based on GESLA-4 sea-level records, " +
    "M. Hart-Davis, D. Dettmering, F. Seitz (2025), doi 10.17882/109129, " +
    "as kept in the npm package @neaps/tide-database",
  licence: "CC BY 4.0",
  changes: "chosen, renamed, rounded",
  units: "amplitudes and levels in metres above the gauge's zero, phases in " +
    "degrees of Greenwich lag (universal time)",
};
const head = Object.entries(header)
  .map(([key, value]) => ` ${JSON.stringify(key)}: ${JSON.stringify(value)},`);
fs.writeFileSync(stationsFile, [
  "{", ...head, ' "stations": [',
  result.map((station) => `  ${JSON.stringify(station)}`).join(",\n"),
  " ]", "}", "",
].join("\n"));
console.log(`${result.length} stations`);
