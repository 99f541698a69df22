// Writes data/basemap/country-names.tsv: the names of the base map's countries in English and German.
//
//   node scripts/make-country-names.mjs
//
// One line per name that the map data use: that name, English, German, separated by tabs. The data know the
// countries by their ISO 3166-1 numbers, from which node's Intl.DisplayNames makes the German names; the tables
// below hold what that cannot give: names of features without a number, names too unwieldy for a map, and the
// English names that the data abbreviate. An unknown country is an error, so that new data get looked at.

import { readFileSync, writeFileSync } from 'node:fs';

const englishNames = {
    'Antigua and Barb.': 'Antigua and Barbuda',
    'Ashmore and Cartier Is.': 'Ashmore and Cartier Islands',
    'Bosnia and Herz.': 'Bosnia and Herzegovina',
    'Br. Indian Ocean Ter.': 'British Indian Ocean Territory',
    'British Virgin Is.': 'British Virgin Islands',
    'Cayman Is.': 'Cayman Islands',
    'Central African Rep.': 'Central African Republic',
    'Cook Is.': 'Cook Islands',
    "Côte d'Ivoire": 'Côte d’Ivoire',
    'Dem. Rep. Congo': 'Democratic Republic of the Congo',
    'Dominican Rep.': 'Dominican Republic',
    'Eq. Guinea': 'Equatorial Guinea',
    'Faeroe Is.': 'Faroe Islands',
    'Falkland Is.': 'Falkland Islands',
    'Fr. Polynesia': 'French Polynesia',
    'Fr. S. Antarctic Lands': 'French Southern and Antarctic Lands',
    'Heard I. and McDonald Is.': 'Heard Island and McDonald Islands',
    'Indian Ocean Ter.': 'Australian Indian Ocean Territories',
    'Macedonia': 'North Macedonia',
    'Marshall Is.': 'Marshall Islands',
    'N. Cyprus': 'Northern Cyprus',
    'N. Mariana Is.': 'Northern Mariana Islands',
    'Pitcairn Is.': 'Pitcairn Islands',
    'S. Geo. and the Is.': 'South Georgia and the South Sandwich Islands',
    'S. Sudan': 'South Sudan',
    'Solomon Is.': 'Solomon Islands',
    'St-Barthélemy': 'Saint Barthélemy',
    'St-Martin': 'Saint Martin',
    'St. Kitts and Nevis': 'Saint Kitts and Nevis',
    'St. Pierre and Miquelon': 'Saint Pierre and Miquelon',
    'St. Vin. and Gren.': 'Saint Vincent and the Grenadines',
    'São Tomé and Principe': 'São Tomé and Príncipe',
    'Turks and Caicos Is.': 'Turks and Caicos Islands',
    'U.S. Virgin Is.': 'United States Virgin Islands',
    'W. Sahara': 'Western Sahara',
    'Wallis and Futuna Is.': 'Wallis and Futuna',
    'eSwatini': 'Eswatini',
    'Åland': 'Åland Islands',
};

const germanNames = {
    'Ashmore and Cartier Is.': 'Ashmore- und Cartierinseln',
    'Brunei': 'Brunei',
    'Congo': 'Republik Kongo',
    'Dem. Rep. Congo': 'Demokratische Republik Kongo',
    'Heard I. and McDonald Is.': 'Heardinsel und McDonaldinseln',
    'Hong Kong': 'Hongkong',
    'Indian Ocean Ter.': 'Australische Gebiete im Indischen Ozean',
    'Kosovo': 'Kosovo',
    'Macao': 'Macau',
    'Moldova': 'Moldau',
    'N. Cyprus': 'Nordzypern',
    'Palestine': 'Palästina',
    'Siachen Glacier': 'Siachen-Gletscher',
    'Somaliland': 'Somaliland',
    'Timor-Leste': 'Osttimor',
};

const folder = new URL('../data/basemap/', import.meta.url);
const topology = JSON.parse(readFileSync(new URL('countries-50m.json', folder), 'utf8'));
const germanNamesByRegion = new Intl.DisplayNames(['de'], { type: 'region', fallback: 'none' });

function germanName(country) {
    const name = country.properties.name;
    if (name in germanNames)
        return germanNames[name];
    // A locale turns the ISO number into the two letters that the display names go by.
    return country.id && germanNamesByRegion.of(new Intl.Locale(`und-${country.id}`).region);
}

const lines = topology.objects.countries.geometries.map((country) => {
    const name = country.properties.name;
    const english = englishNames[name] ?? name;
    const german = germanName(country);
    if (!german || /\.(\s|$)/.test(english))
        throw new Error(`No full name for "${name}": add it to the tables of this script.`);
    return `${name}\t${english}\t${german}\n`;
});
writeFileSync(new URL('country-names.tsv', folder), lines.sort().join(''));
