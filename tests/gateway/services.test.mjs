// The interface for services, asked by a client that knows its document alone. All topics run in one process, because
// the last test looks which of the documented answers came.
import assert from 'node:assert/strict'
import { readFileSync } from 'node:fs'
import { after, before, describe, it } from 'node:test'
import { addresses } from './services/addresses.mjs'
import { bodies } from './services/bodies.mjs'
import { described } from './services/described.mjs'
import { functions } from './services/functions.mjs'
import { holders } from './services/holders.mjs'
import { processes } from './services/processes.mjs'
import { rights } from './services/rights.mjs'
import { tokens } from './services/tokens.mjs'
import { engines } from './support/engines.mjs'
import { Interface } from './support/openapi.mjs'
import { Services, met } from './support/services.mjs'

const document = readFileSync(new URL('../../host/gateway/openapi.json', import.meta.url), 'utf8')

const TOPICS = { described, functions, rights, holders, processes, tokens, bodies, addresses }

for (const engine of engines)
  describe(`services on ${engine.name}`, () => {
    const services = new Services(engine)
    before(() => services.start())
    after(() => services.stop())

    for (const [topic, tests] of Object.entries(TOPICS)) describe(topic, () => tests(services))
  })

describe('the document of the interface for services', () => {
  it('was held against every answer that it names', () => {
    assert.deepEqual(new Interface(JSON.parse(document), met).unmet(), [])
  })
})
