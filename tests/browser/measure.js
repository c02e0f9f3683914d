// How long it takes from opening Home to its first picture, in milliseconds by the browser's clock:
//   cold    a host that has just started, and a browser that has nothing
//   host    a host that has loaded Home before, and a browser that has nothing
//   warm    both have loaded Home before
// Medians, with the least and the most.

import { startHost } from './support/Programs.js';
import { Television } from './support/Television.js';

const rounds = 11;

/** Opens Home; its first picture is there when the first image that shows something has loaded. */
async function timeToFirstPicture(viewer) {
    await viewer.page.goto(viewer.host.address, { waitUntil: 'domcontentloaded' });
    const first = await viewer.until(() => {
        const shown = [...document.images].filter((image) => image.complete && image.naturalWidth > 0);
        const ends = shown.map((image) => performance.getEntriesByName(image.src).at(-1)?.responseEnd).filter(Boolean);
        return ends.length > 0 && Math.min(...ends);
    });
    return first.jsonValue();
}

const told = (name, times) => {
    const sorted = [...times].sort((a, b) => a - b);
    const [least, median, most] = [sorted[0], sorted[(sorted.length - 1) / 2], sorted.at(-1)].map(Math.round);
    console.log(`${name}\t${median} ms\t(${least} to ${most}, ${sorted.length} times)`);
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
for (const [name, measured] of Object.entries(times)) told(name, measured);
