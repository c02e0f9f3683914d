// For the files whose tests each have a viewer of their own, in which nothing may go wrong. Importing it is enough.

import assert from 'node:assert/strict';
import { after, afterEach, before, beforeEach } from 'node:test';
import { Television } from './Television.js';

/** The television of the file, and the viewer of the test that runs. */
export let television, viewer;

before(async () => { television = await Television.start(); });
after(() => television?.end());
beforeEach(async () => { viewer = await television.viewer(); });
afterEach(async () => {
    const { problems } = viewer;
    await viewer.close();
    assert.deepEqual(problems, []);
});
