// How long it takes from opening Home to its first picture, in milliseconds by the browser's clock:
//   cold    neither the host nor the browser has loaded Home before
//   host    the host has loaded Home before
//   warm    both have loaded Home before
// Medians, with minimum and maximum.

import { startHost } from './support/Programs.js';
import { Television } from './support/Television.js';

const rounds = 11;

/** Opens Home and waits for the first image that has loaded: the time when its last byte arrived. */
async function timeToFirstPicture(viewer) {
    await viewer.page.goto(viewer.host.address, { waitUntil: 'domcontentloaded' });
    const first = await viewer.until(() => {
        const shown = [...document.images].filter((image) => image.complete && image.naturalWidth > 0);
        const ends = shown.map((image) => performance.getEntriesByName(image.src).at(-1)?.responseEnd).filter(Boolean);
        return ends.length > 0 && Math.min(...ends);
    });
    return first.jsonValue();
}

const report = (name, times) => {
    const sorted = [...times].sort((a, b) => a - b);
    const [min, median, max] = [sorted[0], sorted[(sorted.length - 1) / 2], sorted.at(-1)].map(Math.round);
    console.log(`${name}\t${median} ms\t(${min} to ${max}, ${sorted.length} times)`);
};

const television = await Television.start();
const times = { cold: [], host: [], warm: [] };
try {
    for (let round = 0; round < rounds; ++round) {
        const host = await startHost(television.service);
        const first = await television.viewer(undefined, { host });
        times.cold.push(await timeToFirstPicture(first));
        await first.settle();
        await first.close();

        const second = await television.viewer(undefined, { host });
        times.host.push(await timeToFirstPicture(second));
        await second.settle();
        times.warm.push(await timeToFirstPicture(second));
        await second.close();
        await host.end();
    }
} finally {
    await television.end();
}
for (const [name, measured] of Object.entries(times)) report(name, measured);
