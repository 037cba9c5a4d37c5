import assert from 'node:assert/strict'
import { readFileSync } from 'node:fs'
import { describe, it } from 'node:test'
import { Interface, faultsOf } from './support/openapi.mjs'

const text = readFileSync(new URL('../../host/gateway/openapi.json', import.meta.url), 'utf8')

describe('the document of the interface for services', () => {
  const document = JSON.parse(text)
  const known = new Interface(document)

  it('is a proper OpenAPI document', async () => {
    assert.deepEqual(await faultsOf(document), [])
  })

  it('gives examples that obey its schemas', () => {
    const examples = [...known.examples()]
    assert.ok(examples.length > 50, `${examples.length} examples`)
    for (const { what, schema, value } of examples) assert.deepEqual(known.faults(schema, value), [], what)
  })

  it('lets no answer hold more than it says', () => {
    const open = []
    const look = (schema, place) => {
      if (schema === null || typeof schema !== 'object') return
      // A sibling of a reference narrows what stands there.
      if (schema.properties && !schema.$ref && schema.additionalProperties === undefined) open.push(place)
      for (const [name, inner] of Object.entries(schema)) look(inner, `${place}/${name}`)
    }
    for (const operation of known.operations.values())
      for (const [status, response] of operation.responses)
        for (const { schema } of Object.values(response.content)) look(schema, `${operation.id} ${status}`)
    look(document.components.schemas, 'schemas')
    // The one answer whose shape is defined elsewhere.
    assert.deepEqual(open, ['getDocument 200'])
  })

  it('knows the refusals that every operation with a token has', () => {
    for (const operation of known.operations.values())
      if (operation.needsToken) for (const status of [401, 403, 429, 503]) assert.ok(operation.responses.has(status), `${operation.id} ${status}`)
  })

  it('explains each operation, parameter and answer', () => {
    for (const operation of known.operations.values()) {
      assert.ok(operation.summary, operation.id)
      for (const parameter of operation.parameters) assert.ok(parameter.description, `${operation.id} ${parameter.name}`)
      for (const [status, response] of operation.responses) assert.ok(response.description, `${operation.id} ${status}`)
    }
  })
})
